#include "platform/search_path.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <utility>

#include "platform/file.h"

namespace hostsweep {
namespace {

constexpr std::array<const char*, 4> SystemDirectories = {"/usr/bin", "/bin", "/usr/sbin", "/sbin"};

std::string PathIn(const std::string& directory, const std::string& name) {
  return directory.empty() ? "./" + name : directory + '/' + name;
}

struct Directory {
  explicit Directory(std::string path)
      : Path(std::move(path)), Target(IdentifyFile(PathIn(Path, "."))) {}

  std::string Path;
  std::optional<FileId> Target;
};

using Directories = std::vector<Directory>;

Directories Parse(std::string_view searchPath) {
  Directories directories;
  for (std::size_t colon = 0; colon != std::string_view::npos;) {
    colon = searchPath.find(':');
    directories.emplace_back(std::string(searchPath.substr(0, colon)));
    searchPath.remove_prefix(colon == std::string_view::npos ? 0 : colon + 1);
  }
  return directories;
}

std::string Join(const Directories& directories) {
  std::string path = directories.front().Path;
  for (std::size_t i = 1; i < directories.size(); ++i) path += ':' + directories[i].Path;
  return path;
}

Directories::iterator Find(Directories& directories, const std::optional<FileId>& target) {
  return std::find_if(directories.begin(), directories.end(), [&](const Directory& directory) {
    return target && directory.Target == target;
  });
}

void AddSystemDirectories(Directories& directories) {
  for (const char* const path : SystemDirectories) {
    if (Find(directories, IdentifyFile(path)) == directories.end()) directories.emplace_back(path);
  }
}

// Puts the directory before the first of the system's, and takes it out of every other place.
void Place(const Directory& tools, Directories& directories) {
  std::erase_if(directories, [&](const Directory& directory) {
    return tools.Target && directory.Target == tools.Target;
  });
  auto first = directories.end();
  for (const char* const path : SystemDirectories) {
    first = std::min(first, Find(directories, IdentifyFile(path)));
  }
  directories.insert(first, tools);
}

}  // namespace

std::string CallersSearchPath() {
  const char* const path = std::getenv("PATH");
  return path == nullptr ? "" : path;
}

std::string SearchPath(std::string_view callersPath, std::string_view toolsDirectory) {
  Directories directories;
  if (!callersPath.empty()) directories = Parse(callersPath);
  AddSystemDirectories(directories);
  if (!toolsDirectory.empty()) Place(Directory(std::string(toolsDirectory)), directories);
  return Join(directories);
}

std::vector<std::string> PathsOf(std::string_view searchPath, const std::string& name) {
  std::vector<std::string> paths;
  for (const Directory& directory : Parse(searchPath)) {
    paths.push_back(PathIn(directory.Path, name));
  }
  return paths;
}

}  // namespace hostsweep
