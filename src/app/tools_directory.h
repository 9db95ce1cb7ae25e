// The directory of the small tools that come with the program, and its place in the search path.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// Seen from the directory of the program at this path: the directory in which the tools are
// installed, or `../libexec/hostsweep`, as in the build directory. Empty if neither is there, if
// `programPath` is empty, or if the directory's path contains a ":", which a search path cannot
// hold.
std::string ToolsDirectory(const std::string& programPath);

// The caller's search path, completed as by `CompleteSearchPath`, with `toolsDirectory`, unless it
// is empty, before the first of the system's directories and nowhere else. So what the caller put
// before these is found first.
std::string SearchPathWithTools(std::string_view callersPath, const std::string& toolsDirectory);

}  // namespace hostsweep
