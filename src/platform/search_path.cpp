#include "platform/search_path.h"

#include <algorithm>
#include <array>

namespace hostsweep {

std::string SearchPath(std::string_view callersPath, std::string_view toolsFolder) {
  // Every folder stands between two colons, the first and the last too, so that it can be found
  // whole. Empty ones, which mean the working directory, stay as they are.
  constexpr std::array<std::string_view, 4> SystemFolders = {
      ":/usr/bin:", ":/bin:", ":/usr/sbin:", ":/sbin:"};
  std::string path = ":";
  if (!callersPath.empty()) path.append(callersPath).append(":");
  std::size_t first = std::string::npos;
  for (const std::string_view folder : SystemFolders) {
    if (path.find(folder) == std::string::npos) path += folder.substr(1);
    first = std::min(first, path.find(folder));
  }
  if (!toolsFolder.empty()) path.insert(first, ':' + std::string(toolsFolder));
  return path.substr(1, path.size() - 2);
}

}  // namespace hostsweep
