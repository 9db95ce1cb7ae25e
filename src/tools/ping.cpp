// ping ARGUMENTS: runs the next ping on the search path, and kills it after one second. Only on
// macOS is -t a time limit; elsewhere a ping without an answer can take ten seconds.
#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signals, not all in <csignal>

#include <chrono>
#include <string>
#include <system_error>
#include <vector>

#include "platform/caught_signal.h"
#include "platform/child_process.h"
#include "platform/pipe.h"
#include "tools/tool.h"

namespace hostsweep {
namespace {

// Returns when the child has ended, and at that time at the latest.
void AwaitEnd(ChildProcess& child, const CaughtSignal& childEnd, Clock::time_point time) {
  std::string data;
  while (!child.HasEnded()) {
    if (ReadUntil(time, childEnd.Reader(), data) == ReadResult::Timeout) return;
  }
}

// Returns the exit status. The child stays in this program's process group, so an interrupt from
// the terminal reaches both.
int RunForOneSecond(const std::vector<std::string>& command) {
  const CaughtSignal childEnd(SIGCHLD);
  ChildProcess child = ChildProcess::StartInheriting(command);
  AwaitEnd(child, childEnd, Clock::now() + std::chrono::seconds(1));
  child.Signal(SIGKILL);
  return child.Wait();
}

int Run(const std::vector<std::string>& arguments) {
  const std::string ping = ProgramBehind("ping");
  if (ping.empty()) return Fail("ping", "not found", ExitNotFound);
  std::vector<std::string> command = {ping};
  command.insert(command.end(), arguments.begin(), arguments.end());
  try {
    return RunForOneSecond(command);
  } catch (const std::system_error& error) {
    return Fail("ping", ping + ": " + error.code().message(), ExitCannotRun);
  }
}

}  // namespace
}  // namespace hostsweep

int main(int argumentCount, char** arguments) {
  return hostsweep::RunTool(hostsweep::Run, argumentCount, arguments);
}
