// src/network/engine: the search for a host as a table of events, the answers of name servers, and
// what is counted and reported.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "network/engine/address_walk.h"
#include "network/engine/host_search.h"
#include "network/engine/target.h"
#include "network/engine/troubles.h"
#include "network/plan/address.h"
#include "network/plan/plan.h"
#include "network/report/progress.h"
#include "network/report/report_writer.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;
using Kind = SearchEvent::Kind;
using enum NeighbourState;

constexpr Clock::time_point Begin = Clock::time_point() + std::chrono::hours(1);
constexpr int Never = -100'000;

// An event at a time in milliseconds, and the state that follows it. `Entry` counts if the table is
// seen: `None` stands for no entry.
struct Step {
  int Time;
  Kind What;
  const char* Next;
  NeighbourState Entry = None;
  int Since = Never;
  int Requests = 0;
  int Confirmed = Never;
  Hearing How = Hearing::Arp;
  Doubt Reason = Doubt::None;
};

Step Sent(int time, const char* next) { return {time, Kind::Sent, next}; }
Step Answered(int time, const char* next) { return {time, Kind::Answered, next}; }
Step Missed(int time, const char* next) { return {time, Kind::Seen, next}; }
Step Seen(int time, NeighbourState entry, int since, const char* next, int requests = 0) {
  return {time, Kind::Seen, next, entry, since, requests};
}
Step Changed(int time, const char* next, Hearing how = Hearing::Arp) {
  return {time, Kind::Changed, next, None, Never, 0, Never, how};
}

std::string NameOf(const HostSearch& search) {
  constexpr std::array<const char*, 10> States = {
      "to probe",  "probed",    "asking", "asking last", "since",
      "verifying", "listening", "up",     "absent",      "unknown"};
  constexpr std::array<const char*, 8> Doubts = {"",         " not asked", " too long", " gateway",
                                                 " changed", " forbidden", " full",     " no way"};
  return std::string(States[static_cast<std::size_t>(search.Current())]) +
         Doubts[static_cast<std::size_t>(search.Reason())];
}

std::string Follow(Hearing hearing, const std::vector<Step>& steps) {
  HostSearch search(hearing);
  const auto at = [](int time) { return Begin + milliseconds(time); };
  std::string states;
  for (const Step& step : steps) {
    Neighbour entry;
    entry.State = step.Entry;
    entry.Since = at(step.Since);
    entry.Confirmed = at(step.Confirmed);
    if (step.Requests > 0) entry.Requests = step.Requests;
    const bool hasEntry = step.What == Kind::Seen && step.Entry != None;
    search.Handle({step.What, hasEntry ? &entry : nullptr, step.Reason, step.How}, at(step.Time));
    states += std::to_string(step.Time) + " " + NameOf(search) + "\n";
  }
  return states;
}

std::string Expected(const std::vector<Step>& steps) {
  std::string states;
  for (const Step& step : steps) states += std::to_string(step.Time) + " " + step.Next + "\n";
  return states;
}

TEST(HostSearch, FindsHostsByArp) {
  const std::pair<const char*, std::vector<Step>> rows[] = {
      {"silence",
       {Sent(0, "probed"), Seen(20, Incomplete, 1, "asking", 1),
        Seen(1990, Incomplete, 1, "asking", 2), Seen(2010, Incomplete, 1, "asking last", 3),
        Seen(2159, Incomplete, 1, "asking last", 3), Seen(2160, Incomplete, 1, "absent", 3),
        Answered(2170, "absent"), Seen(2180, Reachable, 2170, "absent")}},
      {"late answer",
       {Sent(0, "probed"), Seen(2010, Incomplete, 1, "asking last", 3),
        Seen(2100, Reachable, 2090, "up")}},
      {"uncounted",
       {Sent(0, "probed"), Seen(2049, Incomplete, 2049, "asking"),
        Seen(2050, Incomplete, 2050, "asking last"), Seen(2200, Incomplete, 2200, "absent")}},
      {"asked before",
       {Sent(0, "probed"), Seen(20, Incomplete, -500, "since", 3),
        Seen(900, Incomplete, -500, "since", 3), Seen(2510, Failed, 2500, "to probe"),
        Sent(2510, "probed"), Seen(5600, Failed, 5510, "absent")}},
      {"host's own request, asked before",
       {Sent(0, "probed"), Seen(20, Incomplete, -500, "since", 3), Seen(40, Stale, 30, "up")}},
      {"asked again meanwhile",
       {Sent(0, "probed"), Seen(20, Incomplete, -500, "since", 3),
        Seen(2510, Incomplete, 2505, "asking", 1)}},
      {"old failure",
       {Sent(0, "probed"), Seen(20, Failed, -500, "probed"), Seen(40, Failed, -500, "probed"),
        Seen(60, Failed, -500, "to probe")}},
      {"failure of unseen requests",
       {Sent(0, "probed"), Seen(200, Failed, 150, "to probe"), Sent(200, "probed"),
        Seen(400, Failed, 350, "absent")}},
      {"fast failure",
       {Sent(0, "probed"), Seen(20, Incomplete, 1, "asking", 1), Seen(200, Failed, 150, "absent")}},
      {"thrown away after the last request",
       {Sent(0, "probed"), Seen(2010, Incomplete, 1, "asking last", 3), Missed(2100, "asking last"),
        Missed(2110, "asking last"), Missed(2120, "asking last"), Missed(2160, "absent")}},
      {"host's own request",
       {Sent(0, "probed"), Seen(20, Incomplete, 1, "asking", 1), Seen(40, Stale, 30, "up")}},
      {"no entry",
       {Sent(0, "probed"), Missed(20, "probed"), Missed(40, "probed"), Missed(60, "to probe"),
        Sent(60, "probed"), Missed(80, "probed"), Missed(100, "probed"),
        Missed(120, "unknown not asked")}},
      {"no entry for a moment",
       {Sent(0, "probed"), Missed(20, "probed"), Missed(40, "probed"),
        Seen(60, Incomplete, 1, "asking", 1), Missed(80, "asking"), Missed(100, "asking"),
        Missed(120, "to probe")}},
      {"answer without entry",
       {Sent(0, "probed"), Answered(5, "probed"), Missed(20, "probed"), Missed(40, "probed"),
        Missed(60, "up")}}};
  for (const auto& [name, steps] : rows)
    EXPECT_EQ(Follow(Hearing::Arp, steps), Expected(steps)) << name;
}

TEST(HostSearch, BelievesNoOldEntry) {
  const Step confirmed = {40, Kind::Seen, "up", Stale, 30, 0, 10};
  const std::pair<const char*, std::vector<Step>> rows[] = {
      {"reachable", {Sent(0, "probed"), Seen(20, Reachable, -40'000, "up")}},
      {"answered", {Sent(0, "probed"), Answered(1, "probed"), Seen(20, Delay, 1, "up")}},
      {"confirmed",
       {Sent(0, "probed"), Seen(20, Delay, 1, "verifying"), Seen(5010, Probe, 5000, "verifying"),
        Seen(5020, Reachable, 5015, "up")}},
      {"confirmed otherwise", {Sent(0, "probed"), confirmed}},
      {"gone",
       {Sent(0, "probed"), Seen(20, Delay, 1, "verifying"), Seen(5010, Probe, 5000, "verifying"),
        Seen(8010, Failed, 8000, "to probe"), Sent(8010, "probed"),
        Seen(8030, Incomplete, 8011, "asking", 1), Seen(10'020, Incomplete, 8011, "asking last", 3),
        Seen(10'170, Incomplete, 8011, "absent", 3)}},
      {"another card",
       {Sent(0, "probed"), Seen(20, Delay, 1, "verifying"), Seen(8010, Failed, 8000, "to probe"),
        Sent(8010, "probed"), Seen(8030, Reachable, 8012, "up")}},
      {"gone after a miss",
       {Sent(0, "probed"), Missed(20, "probed"), Missed(40, "probed"), Missed(60, "to probe"),
        Sent(60, "probed"), Seen(80, Delay, 61, "verifying"),
        Seen(8100, Failed, 8061, "to probe")}},
      {"unused",
       {Sent(0, "probed"), Seen(20, Stale, -900, "probed"), Seen(40, Stale, -900, "probed"),
        Seen(60, Stale, -900, "to probe")}},
      {"judged late", {Sent(0, "probed"), Seen(10'500, Reachable, 5, "up")}},
      {"without end",
       {Sent(0, "probed"), Seen(9000, Delay, 1, "verifying"),
        Seen(9001, Delay, 1, "unknown too long")}},
      {"administrator's, there",
       {Sent(0, "probed"), Seen(20, Permanent, -900, "listening"), Answered(30, "listening"),
        Seen(40, Permanent, -900, "up")}},
      {"administrator's, silent",
       {Sent(0, "probed"), Seen(699, Permanent, -900, "listening"),
        Seen(700, NoArp, -900, "to probe"), Sent(700, "probed"),
        Seen(1400, Permanent, -900, "to probe"), Sent(1400, "probed"),
        Seen(2199, Permanent, -900, "listening"), Seen(2200, Permanent, -900, "unknown")}}};
  for (const auto& [name, steps] : rows)
    EXPECT_EQ(Follow(Hearing::Arp, steps), Expected(steps)) << name;
}

TEST(HostSearch, ListensBeyondARouterAndNoticesChanges) {
  const std::vector<Step> silence = {Sent(0, "listening"), Missed(700, "to probe"),
                                     Sent(700, "listening"), Missed(1400, "to probe"),
                                     Sent(1400, "listening")};
  const auto after = [](std::vector<Step> steps, const std::vector<Step>& more) {
    steps.insert(steps.end(), more.begin(), more.end());
    return steps;
  };
  const Step forbidden = {1,     Kind::Failed, "unknown forbidden", None, Never, 0,
                          Never, {},           Doubt::Forbidden};
  const std::tuple<const char*, Hearing, std::vector<Step>> rows[] = {
      {"answer", Hearing::Answer, {Sent(0, "listening"), Answered(9, "up")}},
      {"silence", Hearing::Answer,
       after(silence, {Missed(2199, "listening"), Missed(2200, "unknown")})},
      {"gateway there", Hearing::Answer, after(silence, {Seen(2200, Stale, 0, "unknown")})},
      {"gateway silent", Hearing::Answer,
       after(silence, {Seen(2200, Incomplete, 0, "unknown gateway", 3)})},
      {"gateway gone", Hearing::Answer,
       after(silence, {Seen(2200, Delay, 0, "listening"), Seen(5100, Probe, 5000, "listening"),
                       Seen(8100, Failed, 8000, "unknown gateway")})},
      {"late answer", Hearing::Answer, after(silence, {Answered(2100, "up"), Changed(2200, "up")})},
      {"forbidden", Hearing::Arp, {forbidden, Answered(2, "unknown forbidden")}},
      {"changed",
       Hearing::Arp,
       {Sent(0, "probed"), Seen(20, Incomplete, 1, "asking", 1), Seen(200, Failed, 150, "absent"),
        Changed(200, "to probe"), Seen(210, Failed, 150, "to probe"), Sent(220, "probed"),
        Seen(240, Incomplete, 221, "asking", 1), Changed(300, "unknown changed")}},
      {"routed elsewhere",
       Hearing::Arp,
       {Sent(0, "probed"), Changed(100, "to probe", Hearing::Answer), Sent(110, "listening")}}};
  for (const auto& [name, hearing, steps] : rows)
    EXPECT_EQ(Follow(hearing, steps), Expected(steps)) << name;
}

// An administrator's entry of a silent host is known without a doubt, until the way to it changes.
TEST(Target, BeginsAnewOnceWhenTheWayChanges) {
  const Route way = {Route::Kind::Direct, 1, 0};
  Target target(0x0A000007, way, {true, 1}, false);
  Neighbour entry;
  entry.State = Permanent;
  entry.HardwareAddress = "\x02\x1B\x2C\x4D\x5E\x63";
  const auto end = [&] {
    for (int time = 0; time < 3000 && !target.Search().IsDone(); time += 100) {
      const Kind what = target.WantsProbe() ? Kind::Sent : Kind::Seen;
      target.Handle({what, &entry, {}, {}}, Begin + milliseconds(time));
    }
    EXPECT_TRUE(target.NeedsConfirmation());
    return target.Result().HardwareAddress;
  };
  EXPECT_EQ(end(), "02-1B-2C-4D-5E-63");
  target.Confirm(way, {true, 2}, Begin);
  EXPECT_TRUE(target.WantsProbe() && target.Result().HardwareAddress.empty());
  EXPECT_EQ(end(), "02-1B-2C-4D-5E-63");
  EXPECT_FALSE(target.IsDone());
  Target lost = target;
  target.Confirm(way, {true, 2}, Begin);
  EXPECT_TRUE(target.IsDone() && target.Troubles().IsEmpty());
  lost.Confirm(way, {false, 3}, Begin);
  EXPECT_TRUE(lost.IsDone() && lost.Result().HardwareAddress.empty());
  EXPECT_FALSE(lost.Troubles().IsEmpty());
}

TEST(TroubleCounts, SaysHowManyAndGivesTheLowestAsAnExample) {
  TroubleCounts counts;
  EXPECT_TRUE(counts.AreNone());
  TroubleSet troubles;
  troubles.Add(Trouble::GatewaySilent);
  counts.Add(troubles, 0x0A000009, "the gateway 10.0.0.1");
  troubles.Add(Trouble::ServerFailed);
  counts.Add(troubles, 0x0A000008, "the gateway 10.0.0.2");
  counts.Add(troubles, 0x0A00000A, "the gateway 10.0.0.3");
  const std::vector<std::string> sentences = {
      "2 of 9 addresses were not looked up: the name server failed or gave an incomplete answer; "
      "try /usr/bin/host 10.0.0.8",
      "3 of 9 addresses were not fully swept: the gateway 10.0.0.2 did not answer; "
      "check it and the way to it"};
  EXPECT_EQ(counts.Describe(9), sentences);
}

TEST(LocalNetworks, AreThoseOfDevicesThatAreUp) {
  const auto device = [](const char* network, std::uint32_t length, bool usesArp, bool isUp) {
    DeviceAddress address;
    address.Network = *ParseAddress(network);
    address.PrefixLength = length;
    address.UsesArp = usesArp;
    address.IsUp = isUp;
    return address;
  };
  std::vector<Network> leftOut;
  std::string names;
  for (const Network& network :
       LocalNetworks({device("10.0.0.9", 24, true, true), device("10.0.0.10", 24, true, true),
                      device("10.0.2.1", 24, true, false), device("127.0.0.1", 24, false, true),
                      device("172.17.0.1", 19, true, true), device("10.88.0.2", 32, true, true)},
                     leftOut)) {
    names += network.Name + " ";
  }
  EXPECT_EQ(names, "10.0.0.0/24 10.88.0.2/32 ");
  ASSERT_EQ(leftOut.size(), 1U);
  EXPECT_EQ(leftOut[0].Name, "172.17.0.0/19");
  const DeviceAddress small = device("10.0.0.6", 30, true, true);
  EXPECT_TRUE(IsReserved(small, 0x0A000004) && IsReserved(small, 0x0A000007));
  EXPECT_FALSE(IsReserved(small, 0x0A000005) || IsReserved(small, 0x0A000008));
  EXPECT_FALSE(IsReserved(device("10.0.0.6", 31, true, true), 0x0A000006));
  EXPECT_TRUE(IsInNetwork(device("0.0.0.0", 0, true, true), 0xFFFFFFFF));
}

TEST(AddressWalk, GoesThroughAllNetworksToTheLastAddressOfAll) {
  const std::vector<Network> networks = {ParseNetwork("10.0.0.255-10.0.1.0"),
                                         ParseNetwork("1.2.3.4"),
                                         ParseNetwork("255.255.255.254/31")};
  AddressWalk walk(networks);
  std::string addresses;
  while (const auto address = walk.Next()) addresses += FormatAddress(*address) + " ";
  EXPECT_EQ(addresses, "10.0.0.255 10.0.1.0 1.2.3.4 255.255.255.254 255.255.255.255 ");
}

TEST(Progress, FitsTheTerminal) {
  const milliseconds left(60500);
  const std::tuple<std::uint64_t, std::uint64_t, int, const char*> rows[] = {
      {127, 254, 40, "127/254 [##########          ] 1:01 left"},
      {254, 254, 20, "254/254 1:01 left"},
      {1, 2, 12, "1/2"},
      {1, 2, 2, ""},
      {1, 2, -1, ""}};
  for (const auto& [done, total, columns, line] : rows) {
    EXPECT_EQ(FormatProgress(done, total, left, columns), line) << columns;
  }
  EXPECT_EQ(FormatProgress(0, 254, {}, 40), "  0/254 [                              ]");
  EXPECT_EQ(FormatProgress(1, 2, left, 300).size(), 56U);  // the longest
}

TEST(TimeLeft, NeverGrows) {
  struct Moment {
    int Time;  // in milliseconds
    std::uint64_t Done;
    int Left;  // 0 for nothing
  };
  const std::pair<std::uint64_t, std::vector<Moment>> rows[] = {
      {254, {{0, 0, 2200}, {100, 6, 2100}, {2100, 6, 100}, {2200, 250, 0}, {3000, 250, 0}}},
      {512, {{9, 0, 2200}, {2208, 0, 1}, {2300, 512, 0}}},
      {1030,  // the second wave begins late
       {{0, 0, 6600},
        {1500, 500, 4400},
        {3000, 500, 2900},
        {5000, 517, 2200},
        {6999, 517, 2200},
        {7000, 518, 0},
        {9000, 1029, 0}}},
      {65536,  // most answer at once, and then nothing does
       {{0, 0, 281600},
        {500, 40000, 110000},
        {600, 40000, 109900},
        {3000, 40000, 107800},
        {400000, 40001, 107800},
        {400000, 65535, 0}}}};
  for (const auto& [total, moments] : rows) {
    TimeLeft left(total, 512);
    for (const auto& [time, done, expected] : moments) {
      EXPECT_EQ(left.At(done, Clock::time_point(milliseconds(time))).value_or(milliseconds(0)),
                milliseconds(expected))
          << done << "/" << total << " at " << time;
    }
  }
}

TEST(ReportWriter, TellsFreeAddressesOnlyAfterACompleteSweep) {
  const std::vector<Network> networks = {ParseNetwork("10.0.0.1-10.0.0.6")};
  for (const bool isComplete : {false, true}) {
    Makers makers;
    ReportWriter report(networks, Selection::Free,
                        MakeFormatter(Format::Map, {Selection::Free, false, 32}, makers));
    report.Add({0x0A000001, "nas", "", Presence::Absent});
    report.Add({0x0A000002, {}, "", Presence::Absent});
    report.Add({0x0A000003, {}, "01-02", Presence::Up});
    report.Add({0x0A000004, {}, "", Presence::Absent});
    report.Add({0x0A000005, {}, "", Presence::Unknown});
    report.Add({0x0A000006, {}, "", Presence::Absent, false, true});
    EXPECT_EQ(report.Pending().Size(), 0U);
    report.End(isComplete);
    report.AddFree();
    EXPECT_EQ(report.Pending().Size(), isComplete ? 24U : 0U);  // "10.0.0.1          . .  "
    EXPECT_EQ(report.Summary(milliseconds(3260)), "6 addresses: 1 up, 1 more with a name, 3.3 s");
  }
}

}  // namespace
}  // namespace hostsweep
