#include "sweep/probe.h"

namespace hostsweep {

Text ProbeCommand(const Text& address) { return "ping -c 1 -t 1 " + address; }

void ProbeAddress(Shell& shell, const Text& address) { shell.Execute(ProbeCommand(address)); }

}  // namespace hostsweep
