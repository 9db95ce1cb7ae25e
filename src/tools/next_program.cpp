#include "tools/next_program.h"

#include "platform/file.h"

namespace hostsweep {

std::string NextProgram(const SearchPath& searchPath, const std::string& name,
                        const std::string& self) {
  if (self.empty()) return {};
  const std::optional<FileId> running = IdentifyFile(self);
  std::string next;
  for (const SearchedDirectory& directory : searchPath) {
    const std::string path = PathIn(directory.Path, name);
    if (running && IdentifyFile(path) == running) {
      next.clear();
    } else if (next.empty() && IsProgram(path)) {
      next = path;
    }
  }
  return next;
}

}  // namespace hostsweep
