#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <sys/select.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/system_call.h"

namespace hostsweep {

FileKind KindOf(int descriptor) {
  if (isatty(descriptor) == 1) return FileKind::Terminal;
  struct stat status = {};
  if (fstat(descriptor, &status) != 0) return FileKind::File;
  return S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode) ? FileKind::Pipe : FileKind::File;
}

// Asked by select(2), as macOS's poll(2) knows no terminals.
bool CanWrite(int descriptor) {
  const auto select = [&] {
    fd_set wanted;
    FD_ZERO(&wanted);
    FD_SET(descriptor, &wanted);
    timeval now = {};
    return ::select(descriptor + 1, nullptr, &wanted, nullptr, &now);
  };
  return RetryInterrupted(select) > 0;
}

bool IsForeground(int descriptor) {
  const pid_t group = tcgetpgrp(descriptor);
  return group == -1 || group == getpgrp();
}

int ColumnsOf(int descriptor) {
  winsize size = {};
  return ioctl(descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace hostsweep
