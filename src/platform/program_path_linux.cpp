// Linux: the kernel's link to the program, proc(5), or the path that it was started by,
// getauxval(3), where no /proc is mounted.
#include <sys/auxv.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>

#include "platform/program_path.h"

namespace hostsweep {

std::string ProgramPath() {
  std::array<char, PATH_MAX> path{};
  const ssize_t size = readlink("/proc/self/exe", path.data(), path.size());
  if (size >= 0) return {path.data(), static_cast<std::size_t>(size)};
  // The kernel gives the path as the address of its text.
  const auto* const started = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
  if (started == nullptr || realpath(started, path.data()) == nullptr) return {};
  return path.data();
}

}  // namespace hostsweep
