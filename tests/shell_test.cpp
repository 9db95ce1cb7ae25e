#include "platform/shell.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "platform/descriptor.h"
#include "platform/exceptions.h"
#include "platform/process.h"
#include "platform/search_path.h"
#include "platform/tools_folder.h"
#include "sweep/hardware_address.h"
#include "sweep/host_name.h"

namespace hostsweep {
namespace {

std::string OutputOf(const std::string& command) {
  Shell shell;
  shell.Execute("echo what was before");
  shell.Execute(command);
  return shell.Result().Bytes();
}

TEST(Shell, CollectsStandardOutputWhateverBecomesOfTheCommand) {
  const std::pair<const char*, std::string> rows[] = {
      {"printf 'a\\n\\nb\\000\\377'", std::string("a\n\nb\0\xFF", 6)},
      {"no-such-program", ""},
      {"echo Message; echo error >&2; exit 1", "Message\n"},
      {"cat; echo read", "read\n"},
      {"echo before; kill -9 $$; echo after", "before\n"},
      {"(sleep 3; echo late) & echo now", "now\n"},  // left behind, holding the pipe
      {"echo  'a  b' \"$0\"", "a  b /bin/sh\n"}};
  for (const auto& [command, output] : rows) EXPECT_EQ(OutputOf(command), output) << command;
}

TEST(Shell, WaitsForACommandThatHasClosedItsOutput) {
  const std::string sign = testing::TempDir() + "hostsweep_has_ended";
  OutputOf("rm -f " + sign);
  OutputOf("exec >&-; sleep 0.2; : >" + sign);
  EXPECT_EQ(OutputOf("rm " + sign + " && echo ended"), "ended\n");
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
  signal(SIGTERM, SIG_IGN);
  signal(SIGCHLD, SIG_IGN);
  EXPECT_EQ(OutputOf("echo begun; kill -TERM $$; echo survived"), "begun\n");
  signal(SIGCHLD, SIG_DFL);
  signal(SIGTERM, SIG_DFL);
  sigprocmask(SIG_SETMASK, &before, nullptr);
}

TEST(Shell, ToolsInheritNoOtherDescriptor) {
  const Descriptor inherited(dup(STDOUT_FILENO));
  const std::string look = "[ -e /dev/fd/" + std::to_string(inherited.Number()) + " ] && echo open";
  ASSERT_EQ(OutputOf(look), "open\n");
  PrepareProcess();
  EXPECT_EQ(OutputOf(look), "");
}

TEST(Shell, IsNotAvailableWithoutDescriptors) {
  Shell shell;
  rlimit before{};
  getrlimit(RLIMIT_NOFILE, &before);
  const rlimit none = {0, before.rlim_max};
  setrlimit(RLIMIT_NOFILE, &none);
  EXPECT_THROW(shell.Execute("echo"), ShellNotAvailableException);
  setrlimit(RLIMIT_NOFILE, &before);
}

TEST(Shell, FindsTheToolsBesideTheBuild) {
  EXPECT_EQ(OutputOf("echo \"$PATH\""), SearchPath(getenv("PATH"), ToolsFolder()) + "\n");
  EXPECT_EQ(OutputOf("command -v Arp"), ToolsFolder() + "/Arp\n");
}

}  // namespace
}  // namespace hostsweep
