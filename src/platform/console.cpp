#include "platform/console.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "platform/exceptions.h"

namespace hostsweep {
namespace {

// A reader that is slower than we are, on a descriptor that somebody made non-blocking.
void WaitForReader() {
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
    } else if (written < 0 && errno == EAGAIN) {
      WaitForReader();
    } else if (written == 0 || errno != EINTR) {
      Quit(0);
    }
  }
}

void Quit(std::int64_t exitCode) { throw EndException(exitCode); }

}  // namespace hostsweep
