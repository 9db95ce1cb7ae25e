// The folder of the small tools that come with the running program.
#pragma once

#include <string>

namespace hostsweep {

// `../libexec/hostsweep`, seen from the folder of the running program with all links resolved, so
// that an installed tree can be moved. Empty if there is no such folder, if the program's path is
// unknown, or if the folder's path contains a ":", which a search path cannot hold.
std::string ToolsFolder();

}  // namespace hostsweep
