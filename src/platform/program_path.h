// Where the running program is. POSIX has no answer, so each operating system has a source file.
#pragma once

#include <string>

namespace hostsweep {

// Absolute path of the running program's file with all links resolved; empty if it is unknown.
std::string ProgramPath();

}  // namespace hostsweep
