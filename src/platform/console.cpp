#include "platform/console.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

#include "platform/exceptions.h"
#include "platform/system_call.h"

namespace hostsweep {
namespace {

// Writes the whole text, and waits where a non-blocking descriptor takes no more of it now. Returns
// false on an error.
bool WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written =
        RetryInterrupted([&] { return write(descriptor, text.data(), text.size()); });
    if (written > 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
      continue;
    }
    if (written == 0 || errno != EAGAIN) return false;
    pollfd wanted = {descriptor, POLLOUT, 0};
    poll(&wanted, 1, -1);
  }
  return true;
}

}  // namespace

void Print(const Text& line) {
  if (!WriteAll(STDOUT_FILENO, line.Bytes() + '\n')) throw OutputException();
}

void PrintError(const std::string& text) { WriteAll(STDERR_FILENO, text); }

void Quit(std::int64_t exitCode) { throw EndException(exitCode); }

}  // namespace hostsweep
