// macOS: the path by which the program was started, dyld(3), made absolute.
#include <mach-o/dyld.h>

#include <array>
#include <climits>
#include <cstdint>
#include <cstdlib>

#include "platform/program_path.h"

namespace hostsweep {

std::string ProgramPath() {
  std::array<char, PATH_MAX> path{};
  std::uint32_t size = path.size();
  if (_NSGetExecutablePath(path.data(), &size) != 0) return {};
  std::array<char, PATH_MAX> resolved{};
  return realpath(path.data(), resolved.data()) == nullptr ? "" : resolved.data();
}

}  // namespace hostsweep
