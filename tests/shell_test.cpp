#include "platform/shell.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "platform/descriptor.h"
#include "platform/exceptions.h"
#include "platform/process.h"
#include "platform/search_path.h"
#include "platform/text_operations.h"
#include "platform/tools_folder.h"
#include "sweep/hardware_address.h"
#include "sweep/host_name.h"

namespace hostsweep {
namespace {

std::string OutputOf(const std::string& command) {
  Shell shell;
  shell.Execute(command);
  return shell.Result().Bytes();
}

TEST(Shell, CollectsStandardOutputWhateverBecomesOfTheCommand) {
  const struct {
    const char* command;
    std::string output;
  } rows[] = {
      {"printf 'a\\n\\nb'", "a\n\nb"},
      {"printf 'a\\000\\377\\200b'", std::string("a\0\xFF\x80"
                                                 "b",
                                                 5)},
      {"true", ""},
      {"no-such-program", ""},
      {"echo Message; exit 1", "Message\n"},
      {"echo error >&2", ""},
      {"cat; echo read", "read\n"},
      {"echo before; kill -9 $$; echo after", "before\n"},
      {"(sleep 3; echo late) & echo now", "now\n"},  // left behind, holding the pipe
      {"echo  'a  b' \"$0\"", "a  b sh\n"},
  };
  for (const auto& row : rows) EXPECT_EQ(OutputOf(row.command), row.output) << row.command;
}

TEST(Shell, ResultIsTheLastCommandsAlone) {
  Shell shell;
  EXPECT_EQ(shell.Result(), "");
  shell.Execute("echo first");
  shell.Execute("echo second");
  EXPECT_EQ(shell.Result(), "second\n");
  shell.Execute("true");
  EXPECT_EQ(shell.Result(), "");
}

TEST(Shell, WaitsForACommandThatHasClosedItsOutput) {
  const std::string sign = testing::TempDir() + "hostsweep_has_ended";
  std::remove(sign.c_str());
  OutputOf("exec >&-; sleep 0.2; : >" + sign);
  EXPECT_EQ(std::remove(sign.c_str()), 0);
}

TEST(Shell, CollectsAndParsesManyMegabytes) {
  const std::string output = OutputOf("head -c 33554432 /dev/zero; printf ' at 1:2:3:4:5:6 '");
  EXPECT_EQ(output.size(), 33554432U + 16U);
  EXPECT_EQ(ParseHardwareAddress(output).Bytes(), "01-02-03-04-05-06");
  EXPECT_EQ(ParseHostName(output, "10.0.0.7").Bytes(), "10.0.0.7");
}

TEST(Shell, ToolsDoNotInheritHowSignalsAreTaken) {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  sigprocmask(SIG_SETMASK, &all, &before);
  auto* const ofTerminate = signal(SIGTERM, SIG_IGN);
  auto* const ofChild = signal(SIGCHLD, SIG_IGN);
  EXPECT_EQ(OutputOf("echo begun; kill -TERM $$; echo survived"), "begun\n");
  signal(SIGCHLD, ofChild);
  signal(SIGTERM, ofTerminate);
  sigprocmask(SIG_SETMASK, &before, nullptr);
}

TEST(Shell, ToolsInheritNoOtherDescriptor) {
  const Descriptor inherited(dup(STDOUT_FILENO));
  const std::string look = "[ -e /dev/fd/" + std::to_string(inherited.Number()) + " ] && echo open";
  ASSERT_EQ(OutputOf(look), "open\n");
  MakeProcessReady();
  EXPECT_EQ(OutputOf(look), "");
}

TEST(Shell, IsNotAvailableWithoutDescriptors) {
  Shell shell;
  std::vector<Descriptor> all;
  for (int number = dup(STDIN_FILENO); number >= 0; number = dup(STDIN_FILENO)) {
    all.emplace_back(number);
  }
  EXPECT_THROW(shell.Execute("echo"), ShellNotAvailableException);
  all.clear();
  shell.Execute("echo again");
  EXPECT_EQ(shell.Result(), "again\n");
}

TEST(Shell, SearchesTheSystemsFoldersWhateverTheCallersPath) {
  const std::string before = getenv("PATH");
  const std::string tools = ToolsFolder();
  ASSERT_EQ(Right(tools, 18), "/libexec/hostsweep");  // the build folder has one as well
  setenv("PATH", "/nowhere", 1);
  EXPECT_EQ(OutputOf("echo \"$PATH\""), "/nowhere:" + tools + ":/usr/bin:/bin:/usr/sbin:/sbin\n");
  unsetenv("PATH");
  EXPECT_EQ(OutputOf("echo \"$PATH\""), tools + ":/usr/bin:/bin:/usr/sbin:/sbin\n");
  setenv("PATH", before.c_str(), 1);
}

TEST(SearchPath, PutsTheToolsBeforeTheSystemAndAddsWhatIsMissing) {
  const struct {
    const char* callers;
    const char* path;
  } rows[] = {
      {"", "/t:/usr/bin:/bin:/usr/sbin:/sbin"},
      {"/home/bin", "/home/bin:/t:/usr/bin:/bin:/usr/sbin:/sbin"},
      {"/home/bin:/sbin:/usr/bin", "/home/bin:/t:/sbin:/usr/bin:/bin:/usr/sbin"},
      {"/opt/usr/bin:/usr/bin2", "/opt/usr/bin:/usr/bin2:/t:/usr/bin:/bin:/usr/sbin:/sbin"},
      {"/bin:/bin", "/t:/bin:/bin:/usr/bin:/usr/sbin:/sbin"},
      {":/bin:", ":/t:/bin::/usr/bin:/usr/sbin:/sbin"},
  };
  for (const auto& row : rows) EXPECT_EQ(SearchPath(row.callers, "/t"), row.path) << row.callers;
  EXPECT_EQ(SearchPath("/bin", ""), "/bin:/usr/bin:/usr/sbin:/sbin");
}

}  // namespace
}  // namespace hostsweep
