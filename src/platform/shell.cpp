#include "platform/shell.h"

#include <chrono>
#include <system_error>

#include "platform/child_process.h"
#include "platform/exceptions.h"
#include "platform/pipe.h"

namespace hostsweep {
namespace {

// The output that the pipe receives until the child is found to have ended. A process that the
// child leaves running can hold the pipe open and go on writing, so the child is checked at
// intervals; what the pipe holds after the last check is read, and nothing later.
std::string Collect(const Descriptor& reader, ChildProcess& child) {
  constexpr std::chrono::milliseconds Interval(50);
  std::string output;
  do {
    const Clock::time_point check = Clock::now() + Interval;
    ReadResult result = ReadResult::Data;
    while (result == ReadResult::Data) result = ReadUntil(check, reader, output);
    if (result == ReadResult::End) child.Wait();
  } while (!child.HasEnded());
  ReadWithin(std::chrono::milliseconds(0), reader, output);
  return output;
}

// The result of the work. Throws a `Failure` in place of a `std::system_error`.
template <typename Failure, typename Work>
auto Translated(Work work) {
  try {
    return work();
  } catch (const std::system_error&) {
    throw Failure();
  }
}

}  // namespace

void Shell::Execute(const Text& command) {
  Pipe output = Translated<ShellNotAvailableException>(OpenPipe);
  ChildProcess child = Translated<ShellNotAvailableException>([&] {
    return ChildProcess::StartIsolated({"/bin/sh", "-c", command.Bytes()}, output.Writer.Number());
  });
  output.Writer.Close();  // the child's copy is the last one, so its end is the output's end
  SetResult(Translated<ShellNotRunningException>([&] { return Collect(output.Reader, child); }));
}

}  // namespace hostsweep
