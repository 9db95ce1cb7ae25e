// Linux: the kernel's link to the program, proc(5).
#include <unistd.h>

#include <array>
#include <climits>

#include "platform/program_path.h"

namespace hostsweep {

std::string ProgramPath() {
  std::array<char, PATH_MAX> path{};
  const ssize_t size = readlink("/proc/self/exe", path.data(), path.size());
  return size < 0 ? "" : std::string(path.data(), static_cast<std::size_t>(size));
}

}  // namespace hostsweep
