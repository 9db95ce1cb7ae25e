// ping ARGUMENTS: runs the next ping on the search path, and ends it after one second. Only on
// macOS is -t a time limit; elsewhere a ping without an answer can take ten seconds.
#include <fcntl.h>

#include <chrono>
#include <string>
#include <vector>

#include "platform/child_process.h"
#include "platform/exceptions.h"
#include "platform/pipe.h"
#include "tools/tool.h"

namespace hostsweep {
namespace {

// Returns the exit status. The child holds one end of a pipe for as long as it runs, so the other
// end becomes readable when it ends. It stays in this program's process group, so an interrupt from
// the terminal reaches both.
int RunForOneSecond(const std::vector<std::string>& command) {
  Pipe lifetime = OpenPipe();
  fcntl(lifetime.Writer.Number(), F_SETFD, 0);  // the child inherits it
  ChildProcess child = ChildProcess::Sharing(command);
  lifetime.Writer.Close();
  if (!BecomesReadable(lifetime.Reader, std::chrono::seconds(1))) child.Kill();
  return child.Wait();
}

int Run(const std::vector<std::string>& arguments) {
  const std::string ping = NextProgram("ping");
  if (ping.empty()) return Fail("ping", "not found", NotFound);
  std::vector<std::string> command = {ping};
  command.insert(command.end(), arguments.begin(), arguments.end());
  try {
    return RunForOneSecond(command);
  } catch (const RuntimeException&) {
    return Fail("ping", ping + " cannot be run", CannotRun);
  }
}

}  // namespace
}  // namespace hostsweep

int main(int argumentCount, char** arguments) {
  return hostsweep::RunTool(hostsweep::Run, argumentCount, arguments);
}
