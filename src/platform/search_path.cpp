#include "platform/search_path.h"

#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): POSIX's setenv, not in <cstdlib>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/system_call.h"

namespace hostsweep {
namespace {

constexpr std::array<const char*, 4> SystemDirectories = {"/usr/bin", "/bin", "/usr/sbin", "/sbin"};

SearchPath::iterator Find(SearchPath& path, const std::optional<FileId>& target) {
  return std::find_if(path.begin(), path.end(), [&](const SearchedDirectory& directory) {
    return target && directory.Target == target;
  });
}

}  // namespace

SearchedDirectory::SearchedDirectory(std::string path)
    : Path(std::move(path)), Target(IdentifyFile(PathIn(Path, "."))) {}

SearchPath ParseSearchPath(std::string_view text) {
  SearchPath path;
  for (std::size_t colon = 0; colon != std::string_view::npos;) {
    colon = text.find(':');
    path.emplace_back(std::string(text.substr(0, colon)));
    text.remove_prefix(colon == std::string_view::npos ? 0 : colon + 1);
  }
  return path;
}

std::string FormatSearchPath(const SearchPath& path) {
  std::string text;
  for (const SearchedDirectory& directory : path) text += directory.Path + ':';
  text.pop_back();
  return text;
}

SearchPath CompleteSearchPath(std::string_view callersPath) {
  SearchPath path;
  if (!callersPath.empty()) path = ParseSearchPath(callersPath);
  for (const char* const directory : SystemDirectories) {
    if (Find(path, IdentifyFile(directory)) == path.end()) path.emplace_back(directory);
  }
  return path;
}

SearchPath::iterator FirstSystemDirectory(SearchPath& path) {
  auto first = path.end();
  for (const char* const directory : SystemDirectories) {
    first = std::min(first, Find(path, IdentifyFile(directory)));
  }
  return first;
}

std::string PathIn(const std::string& directory, const std::string& name) {
  return directory.empty() ? "./" + name : directory + '/' + name;
}

std::string CallersSearchPath() {
  const char* const path = std::getenv("PATH");
  return path == nullptr ? "" : path;
}

void ReplaceSearchPath(const std::string& path) {
  unsetenv("PATH");  // an environment can have it twice
  if (setenv("PATH", path.c_str(), 1) != 0) ThrowSystemError("setenv");
}

}  // namespace hostsweep
