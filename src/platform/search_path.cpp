#include "platform/search_path.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace hostsweep {
namespace {

constexpr std::array<const char*, 4> SystemFolders = {"/usr/bin", "/bin", "/usr/sbin", "/sbin"};

// What a path leads to, whatever its spelling and the links on the way; nothing if it does not
// exist.
using File = std::optional<std::pair<dev_t, ino_t>>;

File FileAt(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return {};
  return std::pair(status.st_dev, status.st_ino);
}

bool Contains(const std::vector<File>& files, const File& file) {
  return file && std::find(files.begin(), files.end(), file) != files.end();
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

std::string PathIn(const std::string& folder, const std::string& name) {
  return folder.empty() ? "./" + name : folder + '/' + name;
}

}  // namespace

std::string SearchPath(std::string_view callersPath, std::string_view toolsFolder) {
  std::vector<std::string> folders;
  if (!callersPath.empty()) folders = Folders(callersPath);
  std::vector<File> files;
  files.reserve(folders.size());
  for (const std::string& folder : folders) files.push_back(FileAt(PathIn(folder, ".")));
  std::vector<File> systemFiles;
  for (const char* const folder : SystemFolders) {
    systemFiles.push_back(FileAt(folder));
    if (Contains(files, systemFiles.back())) continue;
    folders.emplace_back(folder);
    files.push_back(systemFiles.back());
  }
  if (toolsFolder.empty()) return Joined(folders);
  const auto first = std::find_if(files.begin(), files.end(),
                                  [&](const File& file) { return Contains(systemFiles, file); });
  folders.emplace(folders.begin() + (first - files.begin()), toolsFolder);
  return Joined(folders);
}

std::string NextProgram(std::string_view searchPath, const std::string& name,
                        const std::string& self) {
  const File running = FileAt(self);
  std::string next;
  for (const std::string& folder : Folders(searchPath)) {
    const std::string path = PathIn(folder, name);
    if (running && FileAt(path) == running) {
      next.clear();
    } else if (next.empty() && IsProgram(path)) {
      next = path;
    }
  }
  return next;
}

}  // namespace hostsweep
