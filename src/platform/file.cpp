#include "platform/file.h"

#include <sys/stat.h>
#include <unistd.h>

namespace hostsweep {

std::optional<FileId> IdentifyFile(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return {};
  return FileId(status.st_dev, status.st_ino);
}

bool IsProgram(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         access(path.c_str(), X_OK) == 0;
}

}  // namespace hostsweep
