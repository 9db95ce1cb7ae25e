#include "platform/shell.h"

#include <chrono>
#include <string_view>

#include "platform/child_process.h"
#include "platform/environment.h"
#include "platform/pipe.h"
#include "platform/search_path.h"
#include "platform/tools_folder.h"

namespace hostsweep {
namespace {

// The caller's environment with the tools' search path in place of its own.
std::vector<std::string> ToolEnvironment() {
  constexpr std::string_view PathVariable = "PATH=";
  std::string callersPath;
  std::vector<std::string> environment;
  for (const std::string& variable : Environment()) {
    if (variable.starts_with(PathVariable)) {
      callersPath = variable.substr(PathVariable.size());
    } else {
      environment.push_back(variable);
    }
  }
  environment.push_back(std::string(PathVariable) + SearchPath(callersPath, ToolsFolder()));
  return environment;
}

// Reads for that long. False if the pipe came to its end within that time.
bool ReadFor(std::chrono::milliseconds time, const Descriptor& reader, std::string& output) {
  using std::chrono::steady_clock;
  const steady_clock::time_point end = steady_clock::now() + time;
  while (time.count() > 0 && BecomesReadable(reader, time)) {
    if (!ReadOnce(reader, output)) return false;
    time = std::chrono::ceil<std::chrono::milliseconds>(end - steady_clock::now());
  }
  return true;
}

// What the pipe receives until the child is found to have ended. A process that the child leaves
// running can hold the pipe open and go on writing, so the child is checked at intervals; what the
// pipe holds after the last check is read, and nothing later.
std::string Collect(const Descriptor& reader, ChildProcess& child) {
  constexpr std::chrono::milliseconds Interval(50);
  std::string output;
  while (!child.HasEnded()) {
    if (ReadFor(Interval, reader, output)) continue;
    child.Wait();
    return output;
  }
  if (BecomesReadable(reader, std::chrono::milliseconds(0))) ReadOnce(reader, output);
  return output;
}

}  // namespace

Shell::Shell() : environment_(ToolEnvironment()) {}

void Shell::Execute(const Text& command) {
  Pipe output = OpenPipe();
  ChildProcess child =
      ChildProcess::Apart({"/bin/sh", "-c", command.Bytes()}, environment_, output.Writer.Number());
  output.Writer.Close();  // the child's copy is the last one, so its end is the output's end
  SetResult(Collect(output.Reader, child));
}

}  // namespace hostsweep
