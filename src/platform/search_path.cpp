#include "platform/search_path.h"

#include <algorithm>
#include <array>

namespace hostsweep {

std::string SearchPath(std::string_view callersPath, std::string_view toolsFolder) {
  constexpr std::array SystemFolders = {"/usr/bin", "/bin", "/usr/sbin", "/sbin"};

  // Every folder stands between two colons, the first and the last too, so that it can be found
  // whole. Empty ones, which mean the working directory, stay as they are.
  std::string path = ":";
  if (!callersPath.empty()) path.append(callersPath).append(":");
  std::size_t first = std::string::npos;
  for (const std::string folder : SystemFolders) {
    if (path.find(':' + folder + ':') == std::string::npos) path += folder + ':';
    first = std::min(first, path.find(':' + folder + ':'));
  }
  if (!toolsFolder.empty()) path.insert(first, ':' + std::string(toolsFolder));
  return path.substr(1, path.size() - 2);
}

}  // namespace hostsweep
