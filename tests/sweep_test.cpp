#include "sweep/sweep.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "app/app.h"
#include "platform/shell.h"
#include "platform/text_operations.h"
#include "sweep/host_record.h"
#include "sweep/sweep_range.h"

namespace hostsweep {
namespace {

// An application that notes its waits instead of waiting.
class PromptApp : public App {
 public:
  void DoEvents(std::int64_t milliseconds) override { Waits += " " + std::to_string(milliseconds); }

  std::string Waits;
};

// A shell that notes its commands and answers from a list.
class ScriptedShell : public Shell {
 public:
  explicit ScriptedShell(std::map<std::string, std::string> answers = {})
      : answers_(std::move(answers)) {}

  void Execute(const Text& command) override {
    Commands += command.Bytes() + "\n";
    if (command.Bytes() == FailsAt) throw ShellNotRunningException();
    SetResult(answers_[command.Bytes()]);
  }

  std::string Commands;
  std::string FailsAt;

 private:
  std::map<std::string, std::string> answers_;
};

class Sweep : public testing::Test {
 protected:
  std::string SweepAndCapture(const SweepRange& range, ScriptedShell& shell) {
    testing::internal::CaptureStdout();
    try {
      SweepHosts(range, shell);
    } catch (const ShellNotRunningException&) {
      EXPECT_NE(shell.FailsAt, "");
    }
    return testing::internal::GetCapturedStdout();
  }

  PromptApp app_;

 private:
  ApplicationRegistration registration_{app_};
};

// What the arguments come to: prefix, first host and count, "live" if only live names are wanted,
// or "quit"; then the waits.
std::string Read(const std::vector<Text>& arguments) {
  PromptApp app;
  const ApplicationRegistration registration(app);
  std::string result;
  try {
    const SweepRange range = ReadSweepRange(arguments);
    result = range.Prefix.Bytes() + " " + std::to_string(range.FirstHost) + " " +
             std::to_string(range.HostCount) + (range.LiveNamesOnly ? " live" : "");
  } catch (const EndException& end) {
    result = end.ExitCode() == 0 ? "quit" : "quit with another status";
  }
  return result + (app.Waits.empty() ? "" : "; waits" + app.Waits);
}

TEST(ReadSweepRange, AcceptsWhatNamesARangeAndQuitsSilentlyOtherwise) {
  const struct {
    std::vector<Text> arguments;
    const char* result;
  } rows[] = {
      {{}, "quit"},
      {{"10.0.0.1"}, "quit"},
      {{"10.0.0", "5"}, "quit"},
      {{"10.0.0.5.", "5"}, "quit"},
      {{"", "5"}, "quit"},
      {{"10.0.0.250", "6"}, "10.0.0 250 6"},
      {{"10.0.0.250", "7"}, "quit"},
      {{"10.0.0.0", "256"}, "10.0.0 0 256"},
      {{"10.0.0.5", "0"}, "quit"},
      {{"10.0.0.5", "-1"}, "quit"},
      {{"10.0.0.5", "abc"}, "quit"},
      {{"10.0.0.5", "0.9"}, "quit"},
      {{"10.0.0.5", "2.9"}, "10.0.0 5 2"},
      {{"10.0.0.5", "9223372036854775808"}, "quit"},
      {{"a.b.c.7", "3"}, "a.b.c 7 3"},
      {{"\xFF.\u20AC..7x", "3"}, "\xFF.\u20AC. 7 3"},
      {{"...", "3"}, ".. 0 3"},
      {{"010.0.0.-4", "2"}, "010.0.0 -4 2"},
      {{"10.0.0.99999999999999999999", "1"}, "10.0.0 -9223372036854775808 1"},
      {{"10.0.0.9223372036854774784", "1024"}, "10.0.0 9223372036854774784 1024"},
      {{"10.0.0.5", "1", "tRUE"}, "10.0.0 5 1 live"},
      {{"10.0.0.5", "1", "True "}, "10.0.0 5 1"},
      {{"10.0.0.5", "1", "1"}, "10.0.0 5 1"},
      {{"10.0.0.5", "1", "x", "500", "7"}, "10.0.0 5 1; waits 500"},
      {{"10.0.0.5", "1", "x", "19999.9"}, "10.0.0 5 1; waits 19999"},
      {{"10.0.0.5", "1", "x", "20000"}, "10.0.0 5 1"},
      {{"10.0.0.5", "1", "x", "abc"}, "10.0.0 5 1; waits 0"},
      {{"10.0.0.5", "1", "x", "-7.5"}, "10.0.0 5 1; waits -7"},
      {{"10.0.0", "5", "x", "1000"}, "quit; waits 1000"},
  };
  for (const auto& row : rows) {
    std::vector<Text> arguments = row.arguments;
    arguments.insert(arguments.begin(), "hostsweep");
    EXPECT_EQ(Read(arguments), row.result) << Join(arguments, " ").Bytes();
  }
  EXPECT_EQ(Read({}), "quit");
}

TEST(DecideName, TellsWhatIsKnown) {
  const struct {
    HostRecord record;
    const char* name;
    const char* liveName;
  } rows[] = {
      {{"10.0.0.7", "nas", "01-02"}, "nas", "nas"},
      {{"10.0.0.7", "nas", ""}, "nas", ""},
      {{"10.0.0.7", "10.0.0.7", "01-02"}, "[Unknown Device]", "[Unknown Device]"},
      {{"10.0.0.7", "10.0.0.7", ""}, "", ""},
      {{"a.b.c.7", "A.B.C.7", "01-02"}, "[Unknown Device]", "[Unknown Device]"},
      {{"10.0.0.7", "", "01-02"}, "", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(DecideName(row.record, false).Bytes(), row.name) << row.record.Name.Bytes();
    EXPECT_EQ(DecideName(row.record, true).Bytes(), row.liveName) << row.record.Name.Bytes();
  }
}

TEST_F(Sweep, ProbesLooksUpPrintsAndWaitsHostByHost) {
  ScriptedShell shell({
      {"ping -c 1 -t 1 010.0.0.253", "x at 1:2:3:4:5:6 domain name pointer probe."},
      {"/usr/bin/host 010.0.0.253", "x domain name pointer Gw\xFF.\n"},
      {"Arp 010.0.0.253", "x at 0:1a:2b:3c:4d:5e on en0\n"},
  });
  EXPECT_EQ(SweepAndCapture({"010.0.0", 253, 3, false}, shell),
            "010.0.0.253=Gw\xFF=00-1A-2B-3C-4D-5E\n"
            "010.0.0.254==\n");
  EXPECT_EQ(shell.Commands,
            "ping -c 1 -t 1 010.0.0.253\n/usr/bin/host 010.0.0.253\nArp 010.0.0.253\n"
            "ping -c 1 -t 1 010.0.0.254\n/usr/bin/host 010.0.0.254\nArp 010.0.0.254\n");
  EXPECT_EQ(app_.Waits, " 10 10");
}

TEST_F(Sweep, SweepsNegativeHostNumbersAndNoneAboveTheLast) {
  const struct {
    SweepRange range;
    const char* lines;
  } rows[] = {
      {{"x", -1, 2, false}, "x.-1==\nx.0==\n"},
      {{"x", INT64_MIN, 1, false}, "x.-9223372036854775808==\n"},
      {{"x", 255, 1, false}, ""},
      {{"x", 4611686018427387904, 4611686018427387904, false}, ""},
      {{"x", INT64_MAX, 1024, false}, ""},
      {{"x", 254, INT64_MAX, false}, ""},
  };
  for (const auto& row : rows) {
    ScriptedShell shell;
    EXPECT_EQ(SweepAndCapture(row.range, shell), row.lines) << row.range.FirstHost;
  }
}

TEST_F(Sweep, ReportsLiveNamesOnly) {
  ScriptedShell shell(
      {{"/usr/bin/host x.1", "domain name pointer nas."}, {"Arp x.2", "x at 1:2:3:4:5:6 "}});
  EXPECT_EQ(SweepAndCapture({"x", 1, 2, true}, shell),
            "x.1==\nx.2=[Unknown Device]=01-02-03-04-05-06\n");
}

TEST_F(Sweep, AnExceptionLeavesTheSweepWhereItIs) {
  ScriptedShell shell;
  shell.FailsAt = "Arp x.2";
  EXPECT_EQ(SweepAndCapture({"x", 1, 9, false}, shell), "x.1==\n");
  EXPECT_EQ(shell.Commands.substr(shell.Commands.size() - 8), "Arp x.2\n");
}

}  // namespace
}  // namespace hostsweep
