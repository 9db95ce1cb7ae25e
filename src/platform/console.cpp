#include "platform/console.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

#include "platform/exceptions.h"

namespace hostsweep {
namespace {

// Returns when a non-blocking standard output can be written again.
void WaitUntilWritable() {
  pollfd wanted = {STDOUT_FILENO, POLLOUT, 0};
  poll(&wanted, 1, -1);
}

}  // namespace

void Print(const Text& line) {
  const std::string bytes = line.Bytes() + '\n';
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const ssize_t written = write(STDOUT_FILENO, rest.data(), rest.size());
    if (written > 0) {
      rest.remove_prefix(static_cast<std::size_t>(written));
      continue;
    }
    if (written < 0 && errno == EINTR) continue;
    if (written == 0 || errno != EAGAIN) Quit(0);
    WaitUntilWritable();
  }
}

void PrintError(const std::string& text) {
  std::string_view rest = text;
  while (!rest.empty()) {
    const ssize_t written = write(STDERR_FILENO, rest.data(), rest.size());
    if (written < 0 && errno != EINTR) return;
    if (written > 0) rest.remove_prefix(static_cast<std::size_t>(written));
  }
}

void Quit(std::int64_t exitCode) { throw EndException(exitCode); }

}  // namespace hostsweep
