#include "platform/file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <system_error>

#include "platform/text/printable.h"

namespace hostsweep {

std::optional<FileId> IdentifyFile(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) return {};
  return FileId(status.st_dev, status.st_ino);
}

std::string ModificationDay(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return {};
    throw std::system_error(errno, std::generic_category(), Printable(path));
  }
  std::tm time = {};
  gmtime_r(&status.st_mtime, &time);
  std::array<char, 32> day{};
  return {day.data(), std::strftime(day.data(), day.size(), "%Y-%m-%d", &time)};
}

bool IsProgram(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         access(path.c_str(), X_OK) == 0;
}

}  // namespace hostsweep
