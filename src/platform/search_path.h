// Where the shell looks for the tools, so that a command means the same on every system.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// The caller's search path (folders joined by ":"; empty for none), made to lead to the tools:
// those of /usr/bin, /bin, /usr/sbin and /sbin that it lacks come last, and `toolsFolder`, unless
// empty, comes in front of the first of these four. So what the caller put before them goes first.
std::string SearchPath(std::string_view callersPath, std::string_view toolsFolder);

}  // namespace hostsweep
