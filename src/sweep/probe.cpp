#include "sweep/probe.h"

namespace hostsweep {

void ProbeAddress(Shell& shell, const Text& address) { shell.Execute("ping -c 1 -t 1 " + address); }

}  // namespace hostsweep
