// The directory of the small tools that come with the running program.
#pragma once

#include <string>

namespace hostsweep {

// `../libexec/hostsweep`, seen from the directory of the program at this path, so that an installed
// tree can be moved. Empty if there is no such directory, if `programPath` is empty, or if the
// directory's path contains a ":", which a search path cannot hold.
std::string ToolsDirectory(const std::string& programPath);

}  // namespace hostsweep
