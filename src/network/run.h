// The program hostsweep-network, from its arguments to its end.
#pragma once

namespace hostsweep {

// Runs the program with its arguments, the first of which is its own path. Returns the exit status,
// or does not return if a signal ends the program.
int RunNetworkProgram(int argumentCount, char** arguments);

}  // namespace hostsweep
