#include "platform/pipe.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>

#include "platform/system_call.h"

namespace hostsweep {
namespace {

// Reads all that the pipe holds.
ReadResult ReadOnce(const Descriptor& reader, std::string& output) {
  // Linux gives a pipe 16 pages of at most 64 KiB each; other systems give it less.
  constexpr std::size_t PipeCapacity = 1U << 20U;
  static std::array<char, PipeCapacity> buffer;  // too large for the stack
  const ssize_t size =
      RetryInterrupted([&] { return read(reader.Number(), buffer.data(), buffer.size()); });
  if (size < 0) ThrowSystemError("read");
  output.append(buffer.data(), static_cast<std::size_t>(size));
  return size > 0 ? ReadResult::Data : ReadResult::End;
}

}  // namespace

Pipe OpenPipe() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) ThrowSystemError("pipe");
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

ReadResult ReadWithin(std::chrono::milliseconds time, const Descriptor& reader,
                      std::string& output) {
  pollfd wanted = {reader.Number(), POLLIN, 0};
  const int milliseconds = static_cast<int>(time.count());
  const int ready = RetryInterrupted([&] { return poll(&wanted, 1, milliseconds); });
  if (ready < 0) ThrowSystemError("poll");
  return ready == 0 ? ReadResult::Timeout : ReadOnce(reader, output);
}

ReadResult ReadUntil(Clock::time_point time, const Descriptor& reader, std::string& output) {
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(time - Clock::now());
  return rest.count() <= 0 ? ReadResult::Timeout : ReadWithin(rest, reader, output);
}

}  // namespace hostsweep
