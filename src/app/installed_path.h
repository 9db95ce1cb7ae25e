// The paths of what is installed with the running program.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// The path to which `relative` leads from the directory of the program at `programPath`. Each "../"
// that `relative` begins with takes the last part off that directory, whose path has no links.
// Empty if `programPath` is empty.
std::string InstalledPath(const std::string& programPath, std::string_view relative);

}  // namespace hostsweep
