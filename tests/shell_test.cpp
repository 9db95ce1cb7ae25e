#include "platform/shell.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "sweep/hardware_address.h"
#include "sweep/host_name.h"

namespace hostsweep {
namespace {

std::string OutputOf(const std::string& command) {
  Shell shell;
  shell.Execute("echo earlier output");
  shell.Execute(command);
  return shell.Result().Bytes();
}

TEST(Shell, CollectsStandardOutputHoweverTheCommandEnds) {
  const std::pair<const char*, std::string> rows[] = {
      {"printf 'a\\n\\nb\\000\\377'", std::string("a\n\nb\0\xFF", 6)},
      {"no-such-program", ""},
      {"echo Message; echo error >&2; exit 1", "Message\n"},
      {"cat; echo read", "read\n"},
      {"echo before; kill -9 $$; echo after", "before\n"},
      {"echo  'a  b' \"$0\"", "a  b /bin/sh\n"}};
  for (const auto& [command, output] : rows) EXPECT_EQ(OutputOf(command), output) << command;
}

TEST(Shell, WaitsForACommandThatHasClosedItsOutput) {
  const std::string sign = testing::TempDir() + "hostsweep_has_ended";
  OutputOf("rm -f " + sign);
  OutputOf("exec >&-; sleep 0.2; : >" + sign);
  EXPECT_EQ(OutputOf("rm " + sign + " && echo ended"), "ended\n");
}

TEST(Shell, DoesNotWaitForProcessesThatTheCommandLeavesRunning) {
  EXPECT_EQ(OutputOf("(sleep 3; echo late) & echo now"), "now\n");
  // One that goes on printing, without a pause that could be taken for the end.
  const std::string output = OutputOf(
      "(i=0; while [ $i -lt 99 ]; do i=$((i + 1)); echo $i; sleep 0.03; done; echo late) & echo "
      "now");
  EXPECT_NE(output.find("now\n"), std::string::npos);
  EXPECT_EQ(output.find("late\n"), std::string::npos);
}

TEST(Shell, CollectsAndParsesManyMegabytes) {
  const std::string output = OutputOf("head -c 4194304 /dev/zero; printf ' at 1:2:3:4:5:6 '");
  EXPECT_EQ(output.size(), 4194304U + 16U);
  EXPECT_EQ(ParseHardwareAddress(output).Bytes(), "01-02-03-04-05-06");
  EXPECT_EQ(ParseHostName(output, "10.0.0.7").Bytes(), "10.0.0.7");
}

}  // namespace
}  // namespace hostsweep
