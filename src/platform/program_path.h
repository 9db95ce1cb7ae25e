// Where the running program is. The one question that each operating system answers in its own way,
// so each has a source file of its own.
#pragma once

#include <string>

namespace hostsweep {

// Absolute path of the running program's file, links resolved; empty if it cannot be told.
std::string ProgramPath();

}  // namespace hostsweep
