// The exit statuses by which sh(1) says that a command has not come to an end of its own.
#pragma once

namespace hostsweep {

constexpr int ExitCannotRun = 126;  // the program cannot be run
constexpr int ExitNotFound = 127;   // there is no such program
constexpr int ExitSignal = 128;     // plus the number of the signal that has terminated it

}  // namespace hostsweep
