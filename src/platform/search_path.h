// The search path: the directories in which commands are looked for, joined by ":". An empty one is
// the working directory. A directory is recognised by what it is, however its path is spelled.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hostsweep {

// The search path in this process's environment; empty if there is none.
std::string CallersSearchPath();

// The caller's search path (empty for none), completed: those of /usr/bin, /bin, /usr/sbin and
// /sbin that it lacks come last, and `toolsDirectory`, unless empty, comes before the first of
// these four and nowhere else. So what the caller put before them is found first.
std::string SearchPath(std::string_view callersPath, std::string_view toolsDirectory);

// The paths that a command of this name has in the directories of a search path, in their order.
// They need not exist.
std::vector<std::string> PathsOf(std::string_view searchPath, const std::string& name);

}  // namespace hostsweep
