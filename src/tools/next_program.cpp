#include "tools/next_program.h"

#include "platform/file.h"
#include "platform/search_path.h"

namespace hostsweep {

std::string NextProgram(std::string_view searchPath, const std::string& name,
                        const std::string& self) {
  if (self.empty()) return {};
  const std::optional<FileId> running = IdentifyFile(self);
  std::string next;
  for (const std::string& path : PathsOf(searchPath, name)) {
    if (running && IdentifyFile(path) == running) {
      next.clear();
    } else if (next.empty() && IsProgram(path)) {
      next = path;
    }
  }
  return next;
}

}  // namespace hostsweep
