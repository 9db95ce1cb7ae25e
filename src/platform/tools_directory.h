// The directory of the small tools that come with the running program.
#pragma once

#include <string>

namespace hostsweep {

// Seen from the directory of the program at this path: the directory in which the tools are
// installed, or `../libexec/hostsweep`, as in the build directory. Empty if neither is there, if
// `programPath` is empty, or if the directory's path contains a ":", which a search path cannot
// hold.
std::string ToolsDirectory(const std::string& programPath);

}  // namespace hostsweep
