#include "app/installed_path.h"

namespace hostsweep {
namespace {

// The path up to its last "/": the directory that holds it.
std::string ParentOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

}  // namespace

std::string InstalledPath(const std::string& programPath, std::string_view relative) {
  constexpr std::string_view Up = "../";
  if (programPath.empty()) return {};
  std::string directory = ParentOf(programPath);
  for (; relative.starts_with(Up); relative.remove_prefix(Up.size()))
    directory = ParentOf(directory);
  return directory.append("/").append(relative);
}

}  // namespace hostsweep
