#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hostsweep {

FileKind KindOf(int descriptor) {
  if (isatty(descriptor) == 1) return FileKind::Terminal;
  struct stat status = {};
  if (fstat(descriptor, &status) != 0) return FileKind::File;
  return S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode) ? FileKind::Pipe : FileKind::File;
}

int ColumnsOf(int descriptor) {
  winsize size = {};
  return ioctl(descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace hostsweep
