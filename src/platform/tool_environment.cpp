#include "platform/tool_environment.h"

#include <string_view>

#include "platform/environment.h"
#include "platform/program_path.h"
#include "platform/search_path.h"
#include "platform/tools_directory.h"

namespace hostsweep {

std::string ToolSearchPath() {
  return SearchPath(CallersSearchPath(), ToolsDirectory(ProgramPath()));
}

std::vector<std::string> ToolEnvironment() {
  constexpr std::string_view PathVariable = "PATH=";
  std::vector<std::string> environment;
  for (const std::string& variable : Environment()) {
    if (!variable.starts_with(PathVariable)) environment.push_back(variable);
  }
  environment.push_back(std::string(PathVariable) + ToolSearchPath());
  return environment;
}

}  // namespace hostsweep
