// src/network/: the sweep of one address, and the decisions around it, without commands.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "network/address.h"
#include "network/address_walk.h"
#include "network/lookup.h"
#include "network/neighbourhood.h"
#include "network/progress.h"
#include "network/report.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;

constexpr const char* NoName = "Host not found: 3(NXDOMAIN)\n";
constexpr const char* NoEntry = "10.0.0.7 (10.0.0.7) -- no entry\n";
constexpr const char* Incomplete = "? (10.0.0.7) at (incomplete) on lab\n";
constexpr const char* Complete = "? (10.0.0.7) at 1:2:3:4:5:6 on lab\n";
constexpr const char* Line = "10.0.0.7=[Unknown Device]=01-02-03-04-05-06";

class OneLookup : public testing::Test {
 protected:
  // Starts the command of the current step and brings its result after that time.
  void Step(const std::string& output, int status = 0, milliseconds time = milliseconds(1)) {
    commands_ += lookup_.Command().Bytes() + "\n";
    lookup_.Begin(now_);
    now_ += time;
    lookup_.Take({0, output, status, false}, now_);
  }

  // Probes without an answer, and finds no name.
  void StepSilently() {
    Step("", 137, milliseconds(1000));
    Step(NoName);
  }

  Clock::time_point now_ = Clock::time_point() + std::chrono::hours(1);
  Lookup lookup_{0x0A000007, {}, Place::Neighbour};
  std::string commands_;
};

TEST_F(OneLookup, TakesTheStepsInTheirOrder) {
  Step("");
  Step("x domain name pointer nas.\n");
  EXPECT_LE(lookup_.CanWaitUntil(), now_);  // there was an answer to the probe
  Step(Complete);
  EXPECT_EQ(commands_, "ping -c 1 -t 1 10.0.0.7\n/usr/bin/host 10.0.0.7\nArp 10.0.0.7\n");
  ASSERT_EQ(lookup_.Current(), Lookup::Step::Done);
  EXPECT_EQ(lookup_.Result().Line, "10.0.0.7=nas=01-02-03-04-05-06");
  EXPECT_TRUE(lookup_.Result().IsComplete);
}

TEST_F(OneLookup, LooksOnceMoreAfterTheLastRequest) {
  StepSilently();
  EXPECT_GT(lookup_.CanWaitUntil(), now_);
  EXPECT_LE(lookup_.NotBefore(), now_);
  Step(Incomplete);
  ASSERT_EQ(lookup_.Current(), Lookup::Step::HardwareAddress);
  EXPECT_GE(lookup_.NotBefore(), now_ + milliseconds(1150));  // the third one, and the reply
  now_ = lookup_.NotBefore();
  Step(Complete);
  ASSERT_EQ(lookup_.Current(), Lookup::Step::Done);
  EXPECT_EQ(lookup_.Result().Line, Line);
}

TEST_F(OneLookup, LooksNoMoreThanThat) {
  for (const bool isLate : {false, true}) {
    lookup_ = Lookup(0x0A000007, {}, Place::Neighbour);
    StepSilently();
    if (isLate) now_ = lookup_.CanWaitUntil();
    Step(Incomplete);
    if (!isLate) {
      now_ = lookup_.NotBefore();
      Step(Incomplete);
    }
    ASSERT_EQ(lookup_.Current(), Lookup::Step::Done) << isLate;
    EXPECT_TRUE(IsFree(lookup_.Result()));
  }
}

TEST_F(OneLookup, ProbesAgainWhereTheKernelHasNotAsked) {
  for (const char* const entry : {Complete, NoEntry}) {
    lookup_ = Lookup(0x0A000007, {}, Place::Neighbour);
    commands_.clear();
    StepSilently();
    Step(NoEntry, 1);
    ASSERT_EQ(lookup_.Current(), Lookup::Step::Probe);
    Step("", 137, milliseconds(1000));
    Step(entry);
    ASSERT_EQ(lookup_.Current(), Lookup::Step::Done);
    EXPECT_EQ(lookup_.Troubles().Has(Trouble::ProbeFailed), entry == NoEntry);
    EXPECT_EQ(commands_.find("host"), commands_.rfind("host"));  // the name is known
  }
  for (const Place place : {Place::Elsewhere, Place::Reserved}) {
    lookup_ = Lookup(0x0A000007, {}, place);
    StepSilently();
    Step(NoEntry, 1);
    EXPECT_TRUE(lookup_.Result().IsComplete);
    EXPECT_EQ(IsFree(lookup_.Result()), place == Place::Elsewhere);
  }
}

TEST_F(OneLookup, ClaimsNothingThatWasNotAnswered) {
  // Output and status of host and of Arp, the status of ping, and the sentence.
  const std::tuple<const char*, int, const char*, int, int, const char*> rows[] = {
      {NoName, 1, Incomplete, 0, 1, ""},
      {NoName, 1, Incomplete, 0, 2, "ping could not"},
      {NoName, 1, Complete, 0, 2, ""},
      {NoName, 1, Incomplete, 0, 127, "a command could not"},
      {NoName, 1, Incomplete, 0, 139, "a command could not"},
      {"x domain name pointer nas.\n", 137, Complete, 0, 0, "a command could not"},
      {"", 0, Complete, 0, 0, "a command could not"},
      {";; no servers could be reached\n", 1, Complete, 0, 0, "no name server answered"},
      {"Host 7 not found: 5(REFUSED)\n", 1, Complete, 0, 0, "the name server refused"},
      {"Host 7 not found: 2(SERVFAIL)\n", 1, Complete, 0, 0, "the name server failed"},
      {NoName, 1, "", 0, 0, "a command could not"},
      {NoName, 1, Complete, 127, 0, "a command could not"}};
  for (const auto& [name, nameStatus, entry, entryStatus, pingStatus, sentence] : rows) {
    lookup_ = Lookup(0x0A000007, {}, Place::Neighbour);
    Step("", pingStatus);
    Step(name, nameStatus);
    Step(entry, entryStatus);
    ASSERT_EQ(lookup_.Current(), Lookup::Step::Done) << pingStatus;
    TroubleCounts counts;
    counts.Add(lookup_.Troubles(), 0x0A000007);
    const std::vector<std::string> sentences = counts.Describe(9);
    EXPECT_EQ(sentences.size(), *sentence == '\0' ? 0U : 1U) << name << entry << pingStatus;
    EXPECT_EQ(lookup_.Result().IsComplete, sentences.empty());
    if (sentences.empty()) continue;
    EXPECT_EQ(sentences[0].find(sentence), 0U) << sentences[0];
    EXPECT_NE(sentences[0].find(" for 1 of 9 addresses: "), std::string::npos) << sentences[0];
    EXPECT_EQ(sentences[0].find("ADDRESS"), std::string::npos) << sentences[0];
  }
}

TEST_F(OneLookup, LeavesOutTheStepsOfMissingPrograms) {
  for (const bool hasPing : {false, true}) {
    lookup_ = Lookup(0x0A000007, {hasPing, !hasPing}, Place::Neighbour);
    Step(hasPing ? "" : NoName);
    while (lookup_.Current() != Lookup::Step::Done) {
      now_ = std::max(now_, lookup_.NotBefore());
      Step(Incomplete);
    }
    EXPECT_FALSE(IsFree(lookup_.Result()));
  }
  EXPECT_EQ(commands_.find("host"), commands_.rfind("host"));
}

DeviceAddress Device(const char* name, const char* address, const char* netmask, bool isUp) {
  return {name, *ParseAddress(address), *ParseAddress(netmask), isUp};
}

TEST(Neighbourhood, KnowsWhatTheDevicesAreOn) {
  const Neighbourhood neighbourhood({Device("a", "10.0.0.9", "255.255.255.0", true),
                                     Device("a", "10.0.0.10", "255.255.255.0", true),
                                     Device("b", "10.0.1.1", "255.255.255.0", true),
                                     Device("c", "10.0.2.1", "255.255.255.0", false),
                                     Device("d", "172.17.0.1", "255.255.0.0", true),
                                     Device("e", "255.255.255.254", "255.255.255.254", true)});
  std::vector<Network> leftOut;
  std::string names;
  for (const Network& network : neighbourhood.LocalNetworks(leftOut)) names += network.Name + " ";
  EXPECT_EQ(names, "10.0.0.0/24 10.0.1.0/24 255.255.255.254/31 ");
  ASSERT_EQ(leftOut.size(), 1U);
  EXPECT_EQ(leftOut[0].Name, "172.17.0.0/16");

  // Network, whether the devices that are up have it, and the one that is down.
  const std::tuple<const char*, bool, const char*> rows[] = {{"10.0.0", true, ""},
                                                             {"10.0.0.1-10.0.1.9", true, ""},
                                                             {"10.0.1.1-10.0.2.1", false, "c"},
                                                             {"10.0.2", false, "c"},
                                                             {"10.0.3", false, ""},
                                                             {"9.255.255.255-10.0.0.1", false, ""},
                                                             {"172.17.4.4", true, ""},
                                                             {"255.255.255.255", true, ""},
                                                             {"10.0.2.1-10.0.3.1", false, ""}};
  for (const auto& [text, has, down] : rows) {
    EXPECT_EQ(neighbourhood.Has(ParseNetwork(text)), has) << text;
    EXPECT_EQ(neighbourhood.DeviceThatIsDown(ParseNetwork(text)), down) << text;
  }
  const std::pair<const char*, Place> places[] = {
      {"10.0.0.1", Place::Neighbour}, {"255.255.255.255", Place::Neighbour},
      {"10.0.0.0", Place::Reserved},  {"10.0.0.255", Place::Reserved},
      {"10.0.2.1", Place::Elsewhere}, {"10.0.3.1", Place::Elsewhere}};
  for (const auto& [address, place] : places) {
    EXPECT_EQ(neighbourhood.PlaceOf(*ParseAddress(address)), place) << address;
  }
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
  const std::tuple<std::uint64_t, std::uint64_t, int, const char*> rows[] = {
      {0, 254, 40, "  0/254 [                              ]"},
      {127, 254, 40, "127/254 [##########          ] 1:01 left"},
      {254, 254, 20, "254/254 0:00 left"},
      {1, 2, 12, "1/2"},
      {1, 2, 2, ""},
      {1, 2, -1, ""}};
  for (const auto& [done, total, columns, line] : rows) {
    EXPECT_EQ(FormatProgress(done, total, milliseconds(60500), columns), line) << columns;
  }
  EXPECT_EQ(FormatProgress(1, 2, milliseconds(0), 300).size(), 56U);  // the longest
}

TEST(Report, TellsFreeAddressesOnlyAfterACompleteSweep) {
  const std::vector<Network> networks = {ParseNetwork("10.0.0.1-10.0.0.4")};
  for (const bool isComplete : {false, true}) {
    Report report(networks, Format::Map, {Selection::Free, false, 32});
    report.Add(MakeFinding(0x0A000001, {"10.0.0.1", "nas", ""}, true));
    report.Add(MakeFinding(0x0A000002, {"10.0.0.2", "10.0.0.2", ""}, true));
    report.Add(MakeFinding(0x0A000003, {"10.0.0.3", "10.0.0.3", "01-02"}, true));
    report.Add(MakeFinding(0x0A000004, {"10.0.0.4", "10.0.0.4", ""}, true));
    EXPECT_EQ(report.Output().Size(), 0U);
    report.End(isComplete);
    report.AddFree();
    EXPECT_EQ(report.Output().Size(), isComplete ? 22U : 0U);  // "10.0.0.1          . ."
    EXPECT_EQ(report.Summary(milliseconds(3260)), "4 addresses: 1 up, 1 more with a name, 3.3 s");
  }
}

}  // namespace
}  // namespace hostsweep
