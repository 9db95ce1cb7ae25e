// The search path: the directories in which programs are looked for, joined by ":". An empty one is
// the working directory.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"

namespace hostsweep {

// A directory of a search path, recognised by what it is, however its path is spelled.
struct SearchedDirectory {
  explicit SearchedDirectory(std::string path);

  std::string Path;
  std::optional<FileId> Target;  // nothing if it is not there
};

using SearchPath = std::vector<SearchedDirectory>;

SearchPath ParseSearchPath(std::string_view text);
std::string FormatSearchPath(const SearchPath& path);

// The caller's search path, which is empty for none, and after it those of /usr/bin, /bin,
// /usr/sbin and /sbin that it lacks.
SearchPath CompleteSearchPath(std::string_view callersPath);

// The first of these four in the path; its end if it has none of them.
SearchPath::iterator FirstSystemDirectory(SearchPath& path);

// The path that a file of this name has in the directory, where it need not exist.
std::string PathIn(const std::string& directory, const std::string& name);

// The search path in this process's environment; empty if there is none.
std::string CallersSearchPath();

// Replaces it, for this process and the programs that it starts from now on.
void ReplaceSearchPath(const std::string& path);

}  // namespace hostsweep
