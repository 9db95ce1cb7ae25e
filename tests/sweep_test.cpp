// src/sweep/: the arguments, the parsers, the report line, and the sweep with a scripted shell.
#include "sweep/sweep.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "app/app.h"
#include "platform/console.h"
#include "platform/text/text_operations.h"
#include "sweep/hardware_address.h"
#include "sweep/host_name.h"
#include "sweep/host_record.h"
#include "sweep/sweep_range.h"

namespace hostsweep {
namespace {

// An application that prints its waits instead of waiting.
class PromptApp : public App {
 public:
  void DoEvents(std::int64_t milliseconds) override { Print("waits " + Str(milliseconds)); }
};

// A shell that prints its commands and answers from a list; one command fails.
class ScriptedShell : public Shell {
 public:
  void Execute(const Text& command) override {
    if (PrintsCommands) Print(command);
    if (command == "Arp x.2") throw ShellNotRunningException();
    SetResult(Answers[command.Bytes()]);
  }
  std::map<std::string, std::string> Answers;
  bool PrintsCommands = true;
};

// What the work prints and how it ends, in order.
template <typename Work>
std::string Transcript(Work work) {
  PromptApp app;
  const ApplicationRegistration registration(app);
  testing::internal::CaptureStdout();
  try {
    work();
  } catch (const EndException& end) {
    Print("quit " + Str(end.ExitCode()));
  } catch (const ShellNotRunningException&) {
    Print("failed");
  }
  return testing::internal::GetCapturedStdout();
}

TEST(ReadSweepRange, AcceptsWhatNamesARangeAndQuitsSilentlyOtherwise) {
  const std::pair<const char*, const char*> rows[] = {
      {"10.0.0.5", "quit 0"},
      {"10.0.0.5. 5", "quit 0"},
      {"10.0.0 5 x -7.5", "waits -7\nquit 0"},
      {"10.0.0.5 0", "quit 0"},
      {"10.0.0.250 6", "10.0.0 250 6"},
      {"10.0.0.250 7", "quit 0"},
      {"\xFF.\u20AC..-7x 2.9", "\xFF.\u20AC. -7 2"},
      {"10.0.0.9223372036854775808 1", "10.0.0 -9223372036854775808 1"},
      {"10.0.0.9223372036854774784 1024", "10.0.0 9223372036854774784 1024"},
      {"10.0.0.5 1 tRUE", "10.0.0 5 1 live"},
      {"010.0.0.5 1 True\t 20000", "010.0.0 5 1"},
      {"10.0.0.5 1 x 19999.9 7", "waits 19999\n10.0.0 5 1"}};
  for (const auto& [arguments, result] : rows) {
    const std::string transcript = Transcript([&, &words = arguments] {
      const SweepRange range = ReadSweepRange(Split(Text("hostsweep ") + words, " "));
      Print(range.Prefix + " " + Str(range.FirstHost) + " " + Str(range.HostCount) +
            (range.LiveNamesOnly ? " live" : ""));
    });
    EXPECT_EQ(transcript, result + std::string("\n")) << arguments;
  }
}

TEST(ParseHostName, TakesTheTargetOfThePointerRecord) {
  const std::pair<const char*, const char*> rows[] = {
      {"7.0.0.10.in-addr.arpa Domain Name POINTER Nas.lan.\r\n", "Nas.lan"},
      // Several records: all of them.
      {"domain name pointer a.\nx domain name pointer b.\n", "a.\nx domain name pointer b"},
      // One character is skipped: a letter, a character of several bytes, a stray byte.
      {"domain name pointerX.nas.\n", ".nas"},
      {"domain name pointer\u20ACnas.\n", "nas"},
      {"domain name pointer\xE2\x82nas.", "\x82nas"},
      {"domain name pointer  \t\r\n ", ""},
      // One dot goes, not two, and no white space before it.
      {"domain name pointer nas..\n", "nas."},
      {"domain name pointer nas .\n", "nas "},
      {"Host omain name pointer not found: 3(NXDOMAIN)\n", "10.0.0.7"},
      {"", "10.0.0.7"}};
  for (const auto& [text, name] : rows) EXPECT_EQ(ParseHostName(text, "10.0.0.7").Bytes(), name);
}

TEST(ParseHardwareAddress, NormalisesSixGroups) {
  const std::pair<const char*, const char*> rows[] = {
      {"? (10.0.0.7) at 0:1f:a:bc:D:e on en0 ifscope [ethernet]\n", "00-1F-0A-BC-0D-0E"},
      {"x AT 1:2:3:4:5:6 on en0\nx at 7:8:9:a:b:c on en1\n", "01-02-03-04-05-06"},
      // An empty group stays, and a character of two bytes is one character.
      {"x at 1::3:4:5:6 ", "01--03-04-05-06"},
      {"x at 1:abc:3:4:5:\u00E9 ", "01-ABC-03-04-05-0\u00E9"},
      {"x at a:2:3:4:5 on en0", "a:2:3:4:5"},
      {"x at a:b:c:d:e:f:a on en0", "a:b:c:d:e:f:a"},
      // The token ends at its first space, and at nothing else.
      {"x at  1:2:3:4:5:6 on en0", ""},
      {"x at 1:2:3:4:5:6\n", ""},
      {"NO ENTRY at 1:2:3:4:5:6 on en0", ""},
      {"? (10.0.0.7) at (Incomplete) on en0\n", ""},
      // Without " at " it begins at the fourth character.
      {"\u20AC\u20AC\u20ACtoken end", "token"},
      {"ab", ""}};
  for (const auto& [text, address] : rows) EXPECT_EQ(ParseHardwareAddress(text).Bytes(), address);
}

TEST(DecideName, TellsWhatIsKnown) {
  const std::tuple<HostRecord, const char*, const char*> rows[] = {
      {{"10.0.0.7", "nas", "01-02"}, "nas", "nas"},
      {{"10.0.0.7", "nas", ""}, "nas", ""},
      {{"a.b.c.7", "A.B.C.7", "01-02"}, "[Unknown Device]", "[Unknown Device]"},
      {{"10.0.0.7", "10.0.0.7", ""}, "", ""},
      {{"10.0.0.7", "", "01-02"}, "", ""}};
  for (const auto& [record, name, liveName] : rows) {
    EXPECT_EQ(DecideName(record, false).Bytes(), name) << record.Name.Bytes();
    EXPECT_EQ(DecideName(record, true).Bytes(), liveName) << record.Name.Bytes();
  }
}

TEST(Sweep, ProbesLooksUpPrintsAndWaitsHostByHost) {
  ScriptedShell shell;
  shell.Answers = {{"ping -c 1 -t 1 010.0.0.253", "x at 1:2:3:4:5:6 domain name pointer probe."},
                   {"/usr/bin/host 010.0.0.253", "x domain name pointer Gw\xFF.\n"},
                   {"Arp 010.0.0.253", "x at 0:1a:2b:3c:4d:5e on en0\n"}};
  const auto sweep = [&] { SweepHosts({"010.0.0", 253, 3, false}, shell); };
  EXPECT_EQ(Transcript(sweep),
            "ping -c 1 -t 1 010.0.0.253\n/usr/bin/host 010.0.0.253\nArp 010.0.0.253\n"
            "010.0.0.253=Gw\xFF=00-1A-2B-3C-4D-5E\nwaits 10\n"
            "ping -c 1 -t 1 010.0.0.254\n/usr/bin/host 010.0.0.254\nArp 010.0.0.254\n"
            "010.0.0.254==\nwaits 10\n");
}

TEST(Sweep, BeginsAtAnyNumberEndsAtTheLastAndStopsAtAnException) {
  const std::pair<SweepRange, const char*> rows[] = {
      {{"x", -1, 2, false}, "x.-1==\nwaits 10\nx.0==\nwaits 10\n"},
      {{"x", INT64_MIN, 1, false}, "x.-9223372036854775808==\nwaits 10\n"},
      {{"x", 255, 1, false}, ""},
      {{"x", 4611686018427387904, 4611686018427387904, false}, ""},
      {{"x", 1, 9, false}, "x.1==\nwaits 10\nfailed\n"}};
  for (const auto& [range, lines] : rows) {
    ScriptedShell shell;
    shell.PrintsCommands = false;
    EXPECT_EQ(Transcript([&, &sweep = range] { SweepHosts(sweep, shell); }), lines);
  }
}

}  // namespace
}  // namespace hostsweep
