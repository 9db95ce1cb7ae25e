#include "platform/pipe.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/exceptions.h"

namespace hostsweep {
namespace {

// The result of the call. Retries it while it fails with EINTR; raises `ShellNotRunningException`
// if it fails otherwise.
template <typename Call>
auto RetryInterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result >= 0) return result;
    if (errno != EINTR) throw ShellNotRunningException();
  }
}

}  // namespace

Pipe OpenPipe() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw ShellNotAvailableException();
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

bool BecomesReadable(const Descriptor& reader, std::chrono::milliseconds time) {
  const int milliseconds = static_cast<int>(time.count());
  pollfd wanted = {reader.Number(), POLLIN, 0};
  return RetryInterrupted([&] { return poll(&wanted, 1, milliseconds); }) > 0;
}

bool ReadOnce(const Descriptor& reader, std::string& output) {
  // Linux gives a pipe 16 pages of at most 64 KiB each; other systems give it less.
  constexpr std::size_t PipeCapacity = 1U << 20U;
  static std::array<char, PipeCapacity> buffer;  // too large for the stack
  const ssize_t size =
      RetryInterrupted([&] { return read(reader.Number(), buffer.data(), buffer.size()); });
  output.append(buffer.data(), static_cast<std::size_t>(size));
  return size > 0;
}

}  // namespace hostsweep
