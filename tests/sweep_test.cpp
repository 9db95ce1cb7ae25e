#include "sweep/sweep.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "app/app.h"
#include "platform/console.h"
#include "platform/text_operations.h"
#include "sweep/host_record.h"
#include "sweep/sweep_range.h"

namespace hostsweep {
namespace {

// An application that prints its waits instead of waiting.
class PromptApp : public App {
 public:
  void DoEvents(std::int64_t milliseconds) override { Print("waits " + Str(milliseconds)); }

 private:
  ApplicationRegistration registration_{*this};
};

// A shell that records its commands and answers from a list.
class ScriptedShell : public Shell {
 public:
  void Execute(const Text& command) override {
    Commands += command.Bytes() + "\n";
    if (command == FailsAt) throw ShellNotRunningException();
    SetResult(Answers[command.Bytes()]);
  }
  std::map<std::string, std::string> Answers;
  Text FailsAt = "nowhere";
  std::string Commands;
};

// The lines and waits of a sweep, in their order.
std::string LinesOf(const SweepRange& range, Shell& shell) {
  PromptApp app;
  testing::internal::CaptureStdout();
  try {
    SweepHosts(range, shell);
  } catch (const ShellNotRunningException&) {
    return testing::internal::GetCapturedStdout() + "failed";
  }
  return testing::internal::GetCapturedStdout();
}

// The wait, if any; then prefix, first host, count, and "live" if only live names are wanted, or
// "quit" and the exit code.
std::string Read(const std::vector<Text>& arguments) {
  PromptApp app;
  testing::internal::CaptureStdout();
  std::string result;
  try {
    const SweepRange range = ReadSweepRange(arguments);
    result = range.Prefix.Bytes() + " " + std::to_string(range.FirstHost) + " " +
             std::to_string(range.HostCount) + (range.LiveNamesOnly ? " live" : "");
  } catch (const EndException& end) {
    result = "quit " + std::to_string(end.ExitCode());
  }
  return testing::internal::GetCapturedStdout() + result;
}

TEST(ReadSweepRange, AcceptsWhatNamesARangeAndQuitsSilentlyOtherwise) {
  const std::pair<std::vector<Text>, const char*> rows[] = {
      {{}, "quit 0"},
      {{"10.0.0.5"}, "quit 0"},
      {{"10.0.0.5.", "5"}, "quit 0"},
      {{"10.0.0.5", "0"}, "quit 0"},
      {{"10.0.0.250", "6"}, "10.0.0 250 6"},
      {{"10.0.0.250", "7"}, "quit 0"},
      {{"10.0.0.5", "9223372036854775808"}, "quit 0"},
      {{"\xFF.\u20AC..7x", "2.9"}, "\xFF.\u20AC. 7 2"},
      {{"...", "3"}, ".. 0 3"},
      {{"010.0.0.-4", "2"}, "010.0.0 -4 2"},
      {{"10.0.0.99999999999999999999", "1"}, "10.0.0 -9223372036854775808 1"},
      {{"10.0.0.9223372036854774784", "1024"}, "10.0.0 9223372036854774784 1024"},
      {{"10.0.0.5", "1", "tRUE"}, "10.0.0 5 1 live"},
      {{"10.0.0.5", "1", "True "}, "10.0.0 5 1"},
      {{"10.0.0.5", "1", "x", "19999.9", "7"}, "waits 19999\n10.0.0 5 1"},
      {{"10.0.0.5", "1", "x", "20000"}, "10.0.0 5 1"},
      {{"10.0.0.5", "1", "x", "-7.5"}, "waits -7\n10.0.0 5 1"},
      {{"10.0.0", "5", "x", "1000"}, "waits 1000\nquit 0"}};
  for (const auto& [userArguments, result] : rows) {
    std::vector<Text> arguments = userArguments;
    arguments.insert(arguments.begin(), "hostsweep");
    EXPECT_EQ(Read(arguments), result) << Join(arguments, " ").Bytes();
  }
}

TEST(DecideName, TellsWhatIsKnown) {
  const std::tuple<HostRecord, const char*, const char*> rows[] = {
      {{"10.0.0.7", "nas", "01-02"}, "nas", "nas"},
      {{"10.0.0.7", "nas", ""}, "nas", ""},
      {{"a.b.c.7", "A.B.C.7", "01-02"}, "[Unknown Device]", "[Unknown Device]"},
      {{"10.0.0.7", "10.0.0.7", ""}, "", ""},
      {{"10.0.0.7", "", "01-02"}, "", ""}};
  for (const auto& [record, name, liveName] : rows) {
    EXPECT_EQ(DecideName(record, false).Bytes(), name) << FormatReportLine(record).Bytes();
    EXPECT_EQ(DecideName(record, true).Bytes(), liveName) << FormatReportLine(record).Bytes();
  }
}

TEST(Sweep, ProbesLooksUpPrintsAndWaitsHostByHost) {
  ScriptedShell shell;
  shell.Answers = {{"ping -c 1 -t 1 010.0.0.253", "x at 1:2:3:4:5:6 domain name pointer probe."},
                   {"/usr/bin/host 010.0.0.253", "x domain name pointer Gw\xFF.\n"},
                   {"Arp 010.0.0.253", "x at 0:1a:2b:3c:4d:5e on en0\n"}};
  EXPECT_EQ(LinesOf({"010.0.0", 253, 3, false}, shell),
            "010.0.0.253=Gw\xFF=00-1A-2B-3C-4D-5E\nwaits 10\n010.0.0.254==\nwaits 10\n");
  EXPECT_EQ(shell.Commands,
            "ping -c 1 -t 1 010.0.0.253\n/usr/bin/host 010.0.0.253\nArp 010.0.0.253\n"
            "ping -c 1 -t 1 010.0.0.254\n/usr/bin/host 010.0.0.254\nArp 010.0.0.254\n");
}

TEST(Sweep, SweepsNegativeHostNumbersAndEndsAtTheLast) {
  const std::pair<SweepRange, const char*> rows[] = {
      {{"x", -1, 2, false}, "x.-1==\nwaits 10\nx.0==\nwaits 10\n"},
      {{"x", INT64_MIN, 1, false}, "x.-9223372036854775808==\nwaits 10\n"},
      {{"x", 255, 1, false}, ""},
      {{"x", 4611686018427387904, 4611686018427387904, false}, ""},
      {{"x", INT64_MAX, 1024, false}, ""}};
  ScriptedShell shell;
  for (const auto& [range, lines] : rows) EXPECT_EQ(LinesOf(range, shell), lines);
}

TEST(Sweep, AnExceptionLeavesItWhereItIs) {
  ScriptedShell shell;
  shell.FailsAt = "Arp x.2";
  EXPECT_EQ(LinesOf({"x", 1, 9, false}, shell), "x.1==\nwaits 10\nfailed");
}

}  // namespace
}  // namespace hostsweep
