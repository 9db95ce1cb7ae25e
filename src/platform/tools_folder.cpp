#include "platform/tools_folder.h"

#include <unistd.h>

#include "platform/program_path.h"

namespace hostsweep {
namespace {

// The path up to its last "/": the folder of a file, or the parent of a folder.
std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

bool IsFolder(const std::string& path) { return access((path + "/.").c_str(), F_OK) == 0; }

}  // namespace

std::string ToolsFolder() {
  const std::string program = ProgramPath();
  if (program.empty()) return {};
  const std::string folder = FolderOf(FolderOf(program)) + "/libexec/hostsweep";
  return IsFolder(folder) && folder.find(':') == std::string::npos ? folder : "";
}

}  // namespace hostsweep
