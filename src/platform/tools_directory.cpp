#include "platform/tools_directory.h"

#include <unistd.h>

#include "platform/install_layout.h"
#include "platform/installed_path.h"

namespace hostsweep {
namespace {

bool IsDirectory(const std::string& path) { return access((path + "/.").c_str(), F_OK) == 0; }

}  // namespace

std::string ToolsDirectory(const std::string& programPath) {
  constexpr const char* BuiltTools = "../libexec/hostsweep";
  if (programPath.empty()) return {};
  for (const char* const relative : {InstalledTools, BuiltTools}) {
    std::string directory = InstalledPath(programPath, relative);
    if (IsDirectory(directory) && directory.find(':') == std::string::npos) return directory;
  }
  return {};
}

}  // namespace hostsweep
