// The environment in which the commands of a sweep run.
#pragma once

#include <string>
#include <vector>

namespace hostsweep {

// The caller's search path, completed as in search_path.h with the directory of this program's own
// tools.
std::string ToolSearchPath();

// The caller's environment, as elements "NAME=value", with that search path in place of its own.
std::vector<std::string> ToolEnvironment();

}  // namespace hostsweep
