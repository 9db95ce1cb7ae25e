// The folder of small tools that belongs to the running program.
#pragma once

#include <string>

namespace hostsweep {

// `../libexec/hostsweep` beside the folder that the running program is in, links resolved, so that
// an installed tree can be moved. Empty if there is no such folder, if where the program is cannot
// be told, or if the path holds a ":", which a search path cannot.
std::string ToolsFolder();

}  // namespace hostsweep
