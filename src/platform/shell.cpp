#include "platform/shell.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include "platform/child_process.h"
#include "platform/descriptor.h"
#include "platform/exceptions.h"
#include "platform/search_path.h"
#include "platform/tools_folder.h"

// POSIX has every program declare it, though some systems do so as well.
extern "C" char** environ;  // NOLINT(readability-redundant-declaration)

namespace hostsweep {
namespace {

// The caller's environment with the tools' search path in place of its own.
std::vector<std::string> ToolEnvironment() {
  constexpr std::string_view PathVariable = "PATH=";
  std::string callersPath;
  std::vector<std::string> environment;
  for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
    const std::string_view text = *variable;
    if (text.substr(0, PathVariable.size()) == PathVariable) {
      callersPath = text.substr(PathVariable.size());
    } else {
      environment.emplace_back(text);
    }
  }
  environment.push_back(std::string(PathVariable) + SearchPath(callersPath, ToolsFolder()));
  return environment;
}

struct Pipe {
  Descriptor reader;
  Descriptor writer;
};

// A pipe that no child inherits.
Pipe OpenPipe() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw ShellNotAvailableException();
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

// The result of the call, made again for as long as signals interrupt it. Raises
// `ShellNotRunningException` if it fails.
template <typename Call>
auto Uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result >= 0) return result;
    if (errno != EINTR) throw ShellNotRunningException();
  }
}

// True if the descriptor has something to read, its end included, within the time.
bool BecomesReadable(const Descriptor& reader, int milliseconds) {
  pollfd wanted = {reader.Number(), POLLIN, 0};
  return Uninterrupted([&] { return poll(&wanted, 1, milliseconds); }) > 0;
}

// Appends what can be read now; false at the end.
bool ReadSome(const Descriptor& reader, std::string& output) {
  std::array<char, 65536> buffer;  // the usual size of a pipe
  const ssize_t size =
      Uninterrupted([&] { return read(reader.Number(), buffer.data(), buffer.size()); });
  output.append(buffer.data(), static_cast<std::size_t>(size));
  return size > 0;
}

// What the child writes until it ends. A process that it leaves behind may hold the pipe open for
// as long as it likes, so in the silence the child itself is looked at as well.
std::string Collect(const Descriptor& reader, ChildProcess& child) {
  constexpr int SilenceMilliseconds = 50;
  std::string output;
  for (bool ended = false;;) {
    if (BecomesReadable(reader, ended ? 0 : SilenceMilliseconds)) {
      if (!ReadSome(reader, output)) break;
    } else {
      if (ended) break;
      ended = child.HasEnded();
    }
  }
  child.Wait();
  return output;
}

}  // namespace

Shell::Shell() : environment_(ToolEnvironment()) {}

void Shell::Execute(const Text& command) {
  Pipe output = OpenPipe();
  ChildProcess child(command.Bytes(), environment_, output.writer.Number());
  output.writer.Close();  // the child's copy is the last one, so its end is the output's end
  SetResult(Collect(output.reader, child));
}

}  // namespace hostsweep
