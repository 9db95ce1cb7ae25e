#include "sweep/lookups.h"

#include "sweep/hardware_address.h"
#include "sweep/host_name.h"

namespace hostsweep {

void ProbeAddress(Shell& shell, const Text& address) { shell.Execute("ping -c 1 -t 1 " + address); }

Text LookupHostName(Shell& shell, const Text& address) {
  shell.Execute("/usr/bin/host " + address);
  return ParseHostName(shell.Result(), address);
}

Text LookupHardwareAddress(Shell& shell, const Text& address) {
  shell.Execute("Arp " + address);
  return ParseHardwareAddress(shell.Result());
}

}  // namespace hostsweep
