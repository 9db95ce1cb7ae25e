// Statuses that sh(1) uses for commands that did not run or did not exit normally.
#pragma once

namespace hostsweep {

constexpr int ExitCannotRun = 126;  // the program cannot be run
constexpr int ExitNotFound = 127;   // there is no such program
constexpr int ExitSignal = 128;     // plus the number of the signal that has terminated it

}  // namespace hostsweep
