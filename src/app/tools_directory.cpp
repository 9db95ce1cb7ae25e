#include "app/tools_directory.h"

#include "app/install_layout.h"
#include "app/installed_path.h"
#include "platform/file.h"
#include "platform/search_path.h"

namespace hostsweep {

std::string ToolsDirectory(const std::string& programPath) {
  constexpr const char* BuiltTools = "../libexec/hostsweep";
  if (programPath.empty()) return {};
  for (const char* const relative : {InstalledTools, BuiltTools}) {
    std::string directory = InstalledPath(programPath, relative);
    const bool isThere = IdentifyFile(directory + "/.").has_value();
    if (isThere && directory.find(':') == std::string::npos) return directory;
  }
  return {};
}

std::string SearchPathWithTools(std::string_view callersPath, const std::string& toolsDirectory) {
  SearchPath path = CompleteSearchPath(callersPath);
  if (toolsDirectory.empty()) return FormatSearchPath(path);
  const SearchedDirectory tools(toolsDirectory);
  std::erase_if(path, [&](const SearchedDirectory& directory) {
    return tools.Target && directory.Target == tools.Target;
  });
  path.insert(FirstSystemDirectory(path), tools);
  return FormatSearchPath(path);
}

}  // namespace hostsweep
