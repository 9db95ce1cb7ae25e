#include "platform/process.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

#include "platform/signals.h"

namespace hostsweep {
namespace {

void KeepOtherDescriptorsFromChildren() {
  const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir("/dev/fd"), closedir);
  if (directory == nullptr) return;
  while (const dirent* entry = readdir(directory.get())) {
    const int number = std::atoi(entry->d_name);  // 0 for "." and ".."
    if (number > STDERR_FILENO) fcntl(number, F_SETFD, FD_CLOEXEC);
  }
}

void PrepareSignals() {
  IgnoreWriteSignals();
  signal(SIGCHLD, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
}

}  // namespace

void OpenStandardDescriptors() {
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const bool isClosed = fcntl(number, F_GETFD) == -1;
    if (isClosed) open("/dev/null", O_RDONLY);  // takes the lowest free number, which is this one
  }
}

void PrepareProcess() {
  OpenStandardDescriptors();
  KeepOtherDescriptorsFromChildren();
  PrepareSignals();
}

}  // namespace hostsweep
