#include "platform/search_path.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <vector>

namespace hostsweep {
namespace {

constexpr std::array<const char*, 4> SystemFolders = {"/usr/bin", "/bin", "/usr/sbin", "/sbin"};

// Links are followed; false if one of the paths leads nowhere.
bool AreSame(const std::string& left, const std::string& right) {
  struct stat first = {};
  struct stat second = {};
  return stat(left.c_str(), &first) == 0 && stat(right.c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool IsSystemFolder(const std::string& folder) {
  return std::any_of(SystemFolders.begin(), SystemFolders.end(),
                     [&](const char* systemFolder) { return AreSame(folder, systemFolder); });
}

bool IsProgram(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         access(path.c_str(), X_OK) == 0;
}

std::vector<std::string> Folders(std::string_view searchPath) {
  std::vector<std::string> folders;
  for (std::size_t colon = 0; colon != std::string_view::npos;) {
    colon = searchPath.find(':');
    folders.emplace_back(searchPath.substr(0, colon));
    searchPath.remove_prefix(colon == std::string_view::npos ? 0 : colon + 1);
  }
  return folders;
}

std::string Joined(const std::vector<std::string>& folders) {
  std::string path = folders.front();
  for (std::size_t i = 1; i < folders.size(); ++i) path += ':' + folders[i];
  return path;
}

std::string FileIn(const std::string& folder, const std::string& name) {
  return folder.empty() ? "./" + name : folder + '/' + name;
}

}  // namespace

std::string SearchPath(std::string_view callersPath, std::string_view toolsFolder) {
  std::vector<std::string> folders;
  if (!callersPath.empty()) folders = Folders(callersPath);
  for (const std::string systemFolder : SystemFolders) {
    const auto isIt = [&](const std::string& folder) { return AreSame(folder, systemFolder); };
    if (std::none_of(folders.begin(), folders.end(), isIt)) folders.push_back(systemFolder);
  }
  const auto first = std::find_if(folders.begin(), folders.end(), IsSystemFolder);
  if (!toolsFolder.empty()) folders.emplace(first, toolsFolder);
  return Joined(folders);
}

std::string NextProgram(std::string_view searchPath, const std::string& name,
                        const std::string& self) {
  std::string next;
  for (const std::string& folder : Folders(searchPath)) {
    const std::string file = FileIn(folder, name);
    if (AreSame(file, self)) {
      next.clear();
    } else if (next.empty() && IsProgram(file)) {
      next = file;
    }
  }
  return next;
}

}  // namespace hostsweep
