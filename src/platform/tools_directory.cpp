#include "platform/tools_directory.h"

#include <unistd.h>

namespace hostsweep {
namespace {

// The path up to its last "/": the directory that holds it.
std::string ParentOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

bool IsDirectory(const std::string& path) { return access((path + "/.").c_str(), F_OK) == 0; }

}  // namespace

std::string ToolsDirectory(const std::string& programPath) {
  if (programPath.empty()) return {};
  const std::string directory = ParentOf(ParentOf(programPath)) + "/libexec/hostsweep";
  return IsDirectory(directory) && directory.find(':') == std::string::npos ? directory : "";
}

}  // namespace hostsweep
