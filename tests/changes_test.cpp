// src/network/changes: what counts as a change, what is kept, and the file in which it is kept.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "network/changes/change.h"
#include "network/changes/change_lines.h"
#include "network/changes/comparison.h"
#include "network/changes/name_news.h"
#include "network/changes/seen_host.h"
#include "network/changes/seen_line.h"
#include "network/engine/finding.h"
#include "network/report/makers.h"
#include "platform/replaced_file.h"

namespace hostsweep {
namespace {

SweepTime At(std::int64_t seconds) { return SweepTime(std::chrono::seconds(seconds)); }

void SetName(Finding& finding, const std::string& text) {
  const std::map<char, NameSource> sources = {{'h', NameSource::Hosts},
                                              {'d', NameSource::Dns},
                                              {'m', NameSource::Mdns},
                                              {'n', NameSource::NetBios}};
  finding.IsLookedUp = text.empty() || text[0] != '!';
  if (text.size() < 2) return;
  finding.Source = sources.at(text[finding.IsLookedUp ? 0 : 1]);
  finding.Name = text.substr(finding.IsLookedUp ? 1 : 2);
}

// A finding as "ADDRESS:CARD=NAME". The address is a number. In place of a card, "-" is nothing,
// "?" something unknown, "*" a host without a card, and "r" a reserved address. A letter for its
// source comes before the name, and "!" before that if the name servers could not be asked.
Finding ParseFinding(const std::string& text) {
  Finding finding;
  const std::size_t colon = text.find(':');
  const std::size_t equals = std::min(text.find('='), text.size());
  const std::string host = text.substr(colon + 1, equals - colon - 1);
  finding.Address = static_cast<std::uint32_t>(std::stoul(text.substr(0, colon)));
  finding.IsReserved = host == "r";
  finding.Host = host == "-" || host == "r" ? Presence::Absent : Presence::Up;
  if (host == "?") finding.Host = Presence::Unknown;
  const bool isCard = finding.Host == Presence::Up && host != "*";
  if (isCard) finding.HardwareAddress = host;
  SetName(finding, equals < text.size() ? text.substr(equals + 1) : "");
  return finding;
}

std::string Described(const Change& change) {
  const Finding& host = change.Host.Known;
  std::string text = std::string(WordFor(change.What)) + ' ' + std::to_string(host.Address) + ':' +
                     (host.HardwareAddress.empty() ? "*" : host.HardwareAddress);
  if (host.Name) text += '=' + *host.Name;
  if (change.What == Change::Kind::Moved) text += " from " + std::to_string(change.FromAddress);
  if (change.What == Change::Kind::Renamed) text += " from " + change.FromName.value_or("-");
  if (change.Host.FirstSeen != At(0) && change.What == Change::Kind::Moved) text += " since later";
  if (!change.WasCard.empty()) text += " was " + change.WasCard;
  const bool hasTime = change.What == Change::Kind::Gone || change.What == Change::Kind::Back;
  if (hasTime) text += " at " + std::to_string(change.LastSeen.time_since_epoch().count());
  return text;
}

std::string Joined(const std::vector<Change>& changes) {
  std::string text;
  for (const Change& change : changes) text += (text.empty() ? "" : ", ") + Described(change);
  return text;
}

// Makes sweeps, separated by "|", the first with an empty file; a sweep that ends with "..." is
// incomplete. Returns the changes of each sweep after the first, joined by "|", too. The first
// sweep is at time 0, and each other sweep a second later.
std::string Simulated(const std::string& sweeps) {
  std::vector<SeenHost> seen;
  std::string result;
  std::istringstream stream(sweeps);
  int time = 0;
  for (std::string sweep; std::getline(stream, sweep, '|'); ++time) {
    Comparison comparison(seen, At(time));
    std::istringstream words(sweep);
    bool isComplete = true;
    for (std::string word; words >> word;) {
      if (word == "...") {
        isComplete = false;
      } else {
        comparison.Add(ParseFinding(word));
      }
    }
    comparison.End(isComplete);
    seen = comparison.Seen();
    std::reverse(seen.begin(), seen.end());  // as in a file that others have put in order
    if (time > 1) result += " | ";
    if (time > 0) result += Joined(comparison.Changes());
  }
  return result;
}

struct Row {
  const char* What;
  const char* Sweeps;
  const char* Changes;
};

void PrintTo(const Row& row, std::ostream* stream) { *stream << row.What; }

class Changes : public testing::TestWithParam<Row> {};

TEST_P(Changes, OfASeriesOfSweeps) { EXPECT_EQ(Simulated(GetParam().Sweeps), GetParam().Changes); }

constexpr Row Lives[] = {
    {"nothing", "1:A 2:- | 1:A 2:-", ""},
    {"comes", "1:A 2:- | 1:A 2:B | 1:A 2:B", "new 2:B | "},
    {"goes", "1:A | 1:- | 1:- | 1:- | 1:-", " | gone 1:A at 0 |  | "},
    {"sleeps", "1:A | 1:- | 1:A | 1:- | 1:A | 1:- | 1:-", " |  |  |  |  | gone 1:A at 4"},
    {"comes back", "1:A | 1:- | 1:- | 1:A | 1:A", " | gone 1:A at 0 | back 1:A at 0 | "},
    {"comes back with another name", "1:A=da | 1:- | 1:- | 1:A=db | 1:A=db",
     " | gone 1:A=a at 0 | back 1:A=b at 0 | "},
    {"another comes where one has gone", "1:A | 1:- | 1:- | 1:B", " | gone 1:A at 0 | new 1:B"},
    {"an order", "3:A 1:B 2:- | 3:- 1:C 2:D | 3:- 1:C 2:D",
     "other 1:C was B, new 2:D | gone 3:A at 0"},
};
constexpr Row Moves[] = {
    {"moves", "1:A 2:- | 1:- 2:A | 1:- 2:A | 1:- 2:A", "moved 2:A from 1 |  | "},
    {"moves back", "1:A 2:- | 1:- 2:A | 1:A 2:- | 1:A 2:-",
     "moved 2:A from 1 | moved 1:A from 2 | "},
    {"moves, and goes once", "1:A 2:- | 1:- 2:A | 1:- 2:- | 1:- 2:-",
     "moved 2:A from 1 |  | gone 2:A at 1"},
    {"moves while away", "1:A 2:- | 1:- 2:- | 1:- 2:A", " | moved 2:A from 1"},
    {"moves after it was gone", "1:A 2:- | 1:- 2:- | 1:- 2:- | 1:- 2:A | 1:- 2:A",
     " | gone 1:A at 0 | moved 2:A from 1 | "},
    {"its old address is given to another", "1:A 2:- | 1:B 2:A | 1:B 2:A",
     "other 1:B was A, moved 2:A from 1 | "},
    {"later", "1:A 2:- | 1:- 2:A | 1:B 2:A", "moved 2:A from 1 | new 1:B"},
    {"takes another's address", "1:A 2:B | 1:- 2:A | 1:- 2:A | 1:- 2:A",
     "moved 2:A from 1 was B |  | "},
    {"from a card called gone", "1:A 2:B | 1:A 2:- | 1:A 2:- | 1:- 2:A",
     " | gone 2:B at 0 | moved 2:A from 1"},
    {"swap", "1:A 2:B | 1:B 2:A | 1:B 2:A", "moved 1:B from 2 was A, moved 2:A from 1 was B | "},
    {"not sure that it has left", "1:A 2:- | 1:? 2:A ... | 1:- 2:A | 1:- 2:A", "new 2:A |  | "},
    {"without names that are its address's", "1:A=dold 2:- | 1:- 2:A=!", "moved 2:A from 1"},
    {"with its own name", "1:A=mown 2:- | 1:- 2:A", "moved 2:A=own from 1"},
    {"not sure that it can be anywhere else", "1:A 2:- | 1:r 2:A", "new 2:A"},
    {"from where it was last", "1:A 2:A 3:- | 1:- 2:A 3:- | 1:- 2:- 3:A", " | moved 3:A from 2"},
    {"to the address of a host without a card", "1:A 2:* | 1:- 2:A | 1:- 2:-",
     "moved 2:A from 1 | "},
};
constexpr Row Turns[] = {
    {"replaced", "1:A | 1:B | 1:B | 1:B", "other 1:B was A |  | "},
    {"takes turns", "1:A | 1:B | 1:A | 1:B | 1:C | 1:A | 1:C",
     "other 1:B was A |  |  | other 1:C was B |  | "},
    {"replaced while it sleeps", "1:A | 1:- | 1:B | 1:- | 1:-",
     " | other 1:B was A |  | gone 1:B at 2"},
    {"the replaced one appears elsewhere", "1:A 2:- | 1:B 2:- | 1:B 2:A",
     "other 1:B was A | moved 2:A from 1"},
    {"the replaced one is at another address too", "1:A 2:A 3:- | 1:B 2:A 3:- | 1:B 2:A 3:A",
     "other 1:B was A | new 3:A"},
    {"replaced, and the other one goes", "1:A | 1:B | 1:- | 1:- | 1:A | 1:- | 1:-",
     "other 1:B was A |  | gone 1:B at 1 | back 1:A at 0 |  | gone 1:A at 4"},
    {"gone, another one, and back", "1:A | 1:- | 1:- | 1:B | 1:A | 1:B | 1:- | 1:-",
     " | gone 1:A at 0 | new 1:B | back 1:A was B at 0 |  |  | gone 1:B at 5"},
};
constexpr Row Several[] = {
    {"at two addresses", "1:A 2:- | 1:A 2:A | 1:A 2:A", "new 2:A | "},
    {"not at one of them any longer", "1:A 2:A | 1:A 2:- | 1:A 2:- | 1:A 2:- | 1:- 2:- | 1:- 2:-",
     " |  |  |  | gone 1:A at 3"},
    {"gone from both, and back at one", "1:A 2:A | 1:- 2:- | 1:- 2:- | 1:A 2:-",
     " | gone 1:A at 0, gone 2:A at 0 | back 1:A at 0"},
    {"one of them changes", "1:A 2:A 3:- | 1:A 2:- 3:A", "moved 3:A from 2"},
    {"both change, and one is added", "1:A 2:A 3:- | 1:- 2:A 3:- | 1:- 2:- 3:A 4:A 5:A",
     " | moved 3:A from 2, moved 4:A from 1, moved 5:A from 2"},
    {"one becomes two", "1:A 2:- 3:- | 1:- 2:A 3:A", "moved 2:A from 1, moved 3:A from 1"},
};
constexpr Row Networks[] = {
    {"not swept now", "1:A 2:B | 2:B | 2:B | 2:B | 1:- 2:B | 1:- 2:B", " |  |  |  | gone 1:A at 0"},
    {"sweeps of others between", "1:A | 1:- | 2:B | 1:-", " | new 2:B | gone 1:A at 0"},
    {"new elsewhere", "1:A | 2:A | 1:- | 1:- | 1:- | 2:A", "new 2:A |  |  |  | "},
    {"other elsewhere", "1:A 2:B | 2:A | 1:- 2:A | 1:- 2:A", "other 2:A was B |  | "},
    {"gone once", "1:A | 2:A | 1:- 2:- | 1:- 2:- | 1:- 2:-", "new 2:A |  | gone 2:A at 1 | "},
    {"to and fro", "1:A | 2:A | 1:A | 2:- | 2:- | 1:- | 1:-",
     "new 2:A |  |  |  |  | gone 1:A at 2"},
    {"then moved in the sight of a sweep", "1:A | 2:A | 1:A 2:-", "new 2:A | moved 1:A from 2"},
    {"another card where it was", "1:A | 2:A | 1:B 2:A", "new 2:A | other 1:B was A"},
    {"another name where it was", "1:A=da | 2:A | 1:A=db", "new 2:A | renamed 1:A=b from a"},
    {"from where it was last", "1:A | 2:A | 1:- 3:A", "new 2:A | new 3:A"},
    {"reserved now", "1:A 2:A | 1:r 2:- | 1:r 2:- | 1:r 2:-", " | gone 2:A at 0 | "},
};
constexpr Row Doubts[] = {
    {"incomplete", "1:A 2:- | 1:- 2:B ... | 1:- 2:B ... | 1:- 2:B ... | 1:- 2:B | 1:- 2:B",
     "new 2:B |  |  |  | gone 1:A at 0"},
    {"incomplete after the first", "1:A | 1:- | 1:- ... | 1:-", " |  | gone 1:A at 0"},
    {"unknown", "1:A | 1:? | 1:? | 1:- | 1:? | 1:-", " |  |  |  | gone 1:A at 0"},
    {"beyond a router", "1:* | 1:? | 1:? | 1:* 2:* | 1:- 2:- | 1:- 2:- | 2:*",
     " |  | new 2:* |  |  | "},
    {"a card unseen for a while", "1:A | 1:- | 1:* | 1:- | 1:-", " |  |  | gone 1:A at 2"},
    {"a card seen now", "1:*=da | 1:A=da | 1:- | 1:-", " |  | gone 1:A=a at 1"},
    {"a card seen now, and another name", "1:*=da | 1:A=db", "renamed 1:A=b from a"},
    {"a host without a card where one has gone", "1:A | 1:- | 1:- | 1:* | 1:A | 1:*",
     " | gone 1:A at 0 | new 1:* | back 1:A at 0 | "},
};
constexpr Row Names[] = {
    {"renamed", "1:A=da | 1:A=db | 1:A=db", "renamed 1:A=b from a | "},
    {"of a host without a card", "1:*=da | 1:*=db", "renamed 1:*=b from a"},
    {"no name any more", "1:A=da | 1:A | 1:A", "renamed 1:A from a | "},
    {"a name now", "1:A | 1:A=da | 1:A=da", "renamed 1:A=a from - | "},
    {"and another card", "1:A=da | 1:B=db | 1:A=dc | 1:A=dd",
     "other 1:B=b was A |  | renamed 1:A=d from c"},
    {"nobody could be asked", "1:A=da | 1:A=! | 1:A=da", " | "},
    {"nobody was asked at first", "1:A=! | 1:A=da | 1:A=db", " | renamed 1:A=b from a"},
    {"silence", "1:A=mc 2:B=nd | 1:A 2:B | 1:A=mc 2:B=nd | 1:- 2:B | 1:- 2:B",
     " |  |  | gone 1:A=c at 2"},
};

INSTANTIATE_TEST_SUITE_P(Lives, Changes, testing::ValuesIn(Lives));
INSTANTIATE_TEST_SUITE_P(Moves, Changes, testing::ValuesIn(Moves));
INSTANTIATE_TEST_SUITE_P(Turns, Changes, testing::ValuesIn(Turns));
INSTANTIATE_TEST_SUITE_P(Several, Changes, testing::ValuesIn(Several));
INSTANTIATE_TEST_SUITE_P(Networks, Changes, testing::ValuesIn(Networks));
INSTANTIATE_TEST_SUITE_P(Doubts, Changes, testing::ValuesIn(Doubts));
INSTANTIATE_TEST_SUITE_P(Names, Changes, testing::ValuesIn(Names));

// What a name means after another name. "k": the earlier name is kept; "c": it has changed; "l":
// what was found now is taken, without a change.
TEST(CompareNames, SaysWhichSilenceMeansSomething) {
  const std::vector<std::string> now = {"",   "!",  "hx", "dx", "mx",  "nx",
                                        "hy", "dy", "my", "ny", "!my", "!ny"};
  const std::pair<std::string, std::string> rows[] = {
      //       -!xxxxyyyy!!
      //         hdmnhdmnmn
      {"", "lkcccccccccc"},    {"!", "lkllllllllll"},  {"hx", "ckllllcccckk"},
      {"dx", "ckllllcccckk"},  {"mx", "kklllkccckck"}, {"nx", "kkllllcccccc"},
      {"!mx", "kklllkllckck"}, {"!nx", "kklllllllclc"}};
  for (const auto& [before, expected] : rows) {
    Finding old;
    SetName(old, before);
    std::string result;
    for (const std::string& name : now) {
      Finding told;
      SetName(told, name);
      result += "klc"[static_cast<int>(CompareNames(old, told))];
    }
    EXPECT_EQ(result, expected) << before;
  }
}

// What holds after any series of sweeps. Cards come, go, move, share addresses and take turns; some
// sweeps are incomplete or leave addresses out.
class Network {
 public:
  explicit Network(unsigned seed) : random_(seed) {}

  std::vector<Finding> Sweep(bool& isComplete) {
    isComplete = Below(5) != 0;
    std::vector<Finding> findings;
    const std::uint32_t leftOut = Below(4) == 0 ? Below(Addresses) : Addresses;
    for (std::uint32_t address = 0; address < Addresses; ++address) {
      const char* const all[] = {"-", "?", "*", "0a", "0b", "0c", "0d", "0e"};
      if (Below(3) == 0) hosts_[address] = all[Below(8)];
      if (address == leftOut) continue;
      const std::string name = std::string("dmn")[Below(3)] + std::string(1, "xy"[Below(2)]);
      findings.push_back(ParseFinding(std::to_string(address) + ':' + hosts_[address] +
                                      (Below(3) == 0 ? "" : '=' + name)));
    }
    return findings;
  }

 private:
  static constexpr std::uint32_t Addresses = 4;
  std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }

  std::mt19937 random_;
  std::vector<std::string> hosts_ = std::vector<std::string>(Addresses, "-");
};

bool IsUpAt(const std::vector<Finding>& findings, const std::string& card) {
  return std::any_of(findings.begin(), findings.end(),
                     [&](const Finding& finding) { return finding.HardwareAddress == card; });
}

void CheckSeen(const std::vector<SeenHost>& seen) {
  std::set<std::pair<std::uint32_t, std::string>> keys;
  std::set<std::uint32_t> owned;
  for (const SeenHost& host : seen) {
    EXPECT_TRUE(keys.emplace(host.Known.Address, host.Known.HardwareAddress).second);
    EXPECT_TRUE(!HasAddress(host) || owned.insert(host.Known.Address).second);
    EXPECT_TRUE(HasAddress(host) || host.Known.Host != Presence::Up);
    EXPECT_LE(host.FirstSeen, host.LastSeen);
  }
}

TEST(Comparison, KeepsItsPromisesInRandomNetworks) {
  for (unsigned seed = 0; seed < 200; ++seed) {
    Network network(seed);
    std::vector<SeenHost> seen;
    std::set<std::pair<std::uint32_t, std::string>> gone;
    std::set<std::pair<std::uint32_t, std::string>> had;
    for (int time = 0; time < 60 && !testing::Test::HasFailure(); ++time) {
      bool isComplete = false;
      const std::vector<Finding> findings = network.Sweep(isComplete);
      const auto compare = [&](std::int64_t second) {
        Comparison comparison(seen, At(second));
        for (const Finding& finding : findings) comparison.Add(finding);
        comparison.End(isComplete);
        seen = comparison.Seen();
        CheckSeen(seen);
        return comparison.Changes();
      };
      std::set<std::uint32_t> addresses;
      for (const Change& change : compare(2 * time)) {
        const Finding& host = change.Host.Known;
        const auto key = std::make_pair(host.Address, host.HardwareAddress);
        EXPECT_TRUE(addresses.insert(host.Address).second) << Described(change);
        if (change.What == Change::Kind::Gone) {
          EXPECT_TRUE(isComplete && !host.HardwareAddress.empty()) << Described(change);
          EXPECT_FALSE(IsUpAt(findings, host.HardwareAddress)) << Described(change);
          EXPECT_TRUE(gone.insert(key).second) << Described(change);
        } else {
          if (change.What == Change::Kind::Moved) gone.erase({change.FromAddress, key.second});
          const bool wasGone = gone.erase(key) > 0;
          const bool isBack = change.What == Change::Kind::Back;
          const bool isNew = change.What == Change::Kind::New || change.What == Change::Kind::Other;
          EXPECT_FALSE(had.contains(key) ? isNew : isBack) << Described(change);
          EXPECT_TRUE(!wasGone || isBack || change.What == Change::Kind::Moved)
              << Described(change);
        }
      }
      for (const Finding& finding : findings) {
        const bool isCard = !finding.HardwareAddress.empty();
        if (isCard) had.emplace(finding.Address, finding.HardwareAddress);
      }
      // The same findings again: the second time they can only show who is gone.
      for (const Change& change : compare(2 * time + 1)) {
        EXPECT_EQ(change.What, Change::Kind::Gone) << Described(change);
        const auto key =
            std::make_pair(change.Host.Known.Address, change.Host.Known.HardwareAddress);
        EXPECT_TRUE(gone.insert(key).second) << Described(change);
      }
    }
    // The file can keep each of these hosts.
    for (const SeenHost& host : seen) {
      Makers makers;
      std::string line = FormatSeenLine(host, makers);
      line.pop_back();
      EXPECT_EQ(FormatSeenLine(ParseSeenLine(line), makers), line + '\n');
    }
  }
}

TEST(Comparison, KeepsWhetherAHostIsUpAndANameThatALineCanHave) {
  std::vector<SeenHost> seen;
  for (const auto& [finding, isUp] :
       {std::make_pair("1:A=d\x1B[2J" + std::string(9000, 'n'), Presence::Up),
        std::make_pair(std::string("1:-"), Presence::Absent),
        std::make_pair(std::string("1:?"), Presence::Unknown)}) {
    Comparison comparison(seen, At(0));
    comparison.Add(ParseFinding(finding));
    comparison.End(false);
    seen = comparison.Seen();
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].Known.Host, isUp);
    EXPECT_EQ(seen[0].Known.Name, "?[2J" + std::string(8188, 'n'));
  }
}

// The line of a host with all values, in which `to` replaces `from`.
std::string SeenLine(const std::string& from = "", const std::string& to = "") {
  std::string line =
      R"({"address":"10.0.0.7","name":"nas.lan","hardware_address":"00-1A-2B-3C-4D-5E","maker":null,)"
      R"("up":false,"name_source":"mdns","first_seen":"2026-02-28T23:59:59Z",)"
      R"("last_seen":"2027-01-02T03:04:05Z","state":"gone","looked_up":true,"version":1})";
  const std::size_t position = line.find(from);
  return line.replace(position, from.size(), to);
}

std::string Refusal(const std::string& line) {
  try {
    ParseSeenLine(line);
    return "taken";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

TEST(SeenLine, IsReadAsItIsWritten) {
  Makers makers("/nonexistent", "/nonexistent");
  for (const std::string& line :
       {SeenLine(), SeenLine(R"("gone","looked_up":true)", R"("here","looked_up":false)"),
        SeenLine("nas.lan", R"(B\"\\Büro)"), SeenLine(R"("nas.lan")", R"("")"),
        SeenLine("false", "null"), SeenLine("00-1A-2B-3C-4D-5E", "00:1a")}) {
    EXPECT_EQ(FormatSeenLine(ParseSeenLine(line), makers), line + '\n');
  }
  // With spaces, as another program may write it, and with a maker unknown to this machine.
  EXPECT_EQ(
      FormatSeenLine(ParseSeenLine(SeenLine(R"("maker":null)", R"( "maker" : "A" )")), makers),
      SeenLine() + '\n');
}

TEST(SeenLine, IsRefusedIfNoSweepWritesIt) {
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"{", "", "is not a JSON object"},
      {SeenLine(), "[]", "is not a JSON object"},
      {"\"version\":1", "\"version\":2", "is of a later version of hostsweep-network"},
      {"\"version\":1", "\"version\":0", "version"},
      {"\"version\":1", "\"version\":1.0", "version"},
      {",\"version\":1", "", "has no version"},
      {"\"version\":1", "\"version\":1,\"up\":true", "has a key twice"},
      {"\"version\":1", "\"version\":1,\"\\u001b\":1", "has an unknown key ?"},
      {"10.0.0.7", "10.0.0.256", "address"},
      {"\"10.0.0.7\"", "null", "address"},
      {"\"nas.lan\"", "7", "name"},
      {"\"nas.lan\"", "null", "name_source"},
      {"nas.lan", "nas\\u001b[2J", "name"},
      {"nas.lan", "nas\x80", "is not a JSON object"},
      {"\"mdns\"", "null", "name_source"},
      {"mdns", "finger", "name_source"},
      {"00-1A", "00-1G", "hardware_address"},
      {"00-1A", "G0-1A", "hardware_address"},
      {"00-1A", "00--A", "hardware_address"},
      {"00-1A", "00-1a", "hardware_address"},
      {"00-1A", "00:1A", "hardware_address"},
      {"00-1A-", "", "hardware_address"},
      {"\"00-1A-2B-3C-4D-5E\"", "\"\"", "hardware_address"},
      {"\"00-1A-2B-3C-4D-5E\"", "null", "state"},
      {"false", "0", "up"},
      {"2026-02-28", "2026-02-29", "first_seen"},
      {"23:59:59", "23:59:60", "first_seen"},
      {"2026", "1969", "first_seen"},
      {"2027-01-02T", "2027-01-02 ", "last_seen"},
      {"2027", "12027", "last_seen"},
      {"03:04:05Z", "-3:04:05Z", "last_seen"},
      {"gone", "dead", "state"},
      {"\"gone\"", "[{}]", "state"},
      {"true", "\"yes\"", "looked_up"}};
  for (const auto& [from, to, what] : rows) {
    const std::string wrong = "has a wrong value for " + what;
    const std::string refusal = Refusal(SeenLine(from, to));
    EXPECT_TRUE(refusal == what || refusal == wrong) << to << ": " << refusal;
  }
}

TEST(ReplacedFile, LeavesAnotherFileThatHasTakenItsPlace) {
  const std::string path = testing::TempDir() + "replaced-" + std::to_string(getpid());
  {
    ReplacedFile file(path);
    std::ofstream(path + ".other") << "other";
    std::rename((path + ".other").c_str(), path.c_str());
    EXPECT_THROW(file.Replace("new"), std::runtime_error);
  }
  std::string line;
  ReplacedFile(path).ReadLine(line);
  EXPECT_EQ(line, "other");
  std::remove(path.c_str());
}

std::vector<Change> SomeChanges() {
  std::vector<Change> changes(5);
  for (Change& change : changes) {
    change.Host.Known = ParseFinding("167772167:02-00-00-00-00-07");
    change.LastSeen = At(1795485909);
  }
  changes[0].Host.Known.Address = 0xC0A8012B;
  changes[0].Host.Known.Name = "b\xC3\xBCro\x1B";
  changes[1].What = Change::Kind::Moved;
  changes[1].FromAddress = 0x0A000008;
  changes[1].WasCard = "02-00-00-00-00-08";
  changes[2].What = Change::Kind::Renamed;
  changes[2].FromName = "a\x1B";
  changes[3].What = Change::Kind::Back;
  changes[3].Host.Known = ParseFinding("1:*=n" + std::string(50, 'n'));
  changes[3].WasCard = changes[1].WasCard;
  changes[4].What = Change::Kind::Renamed;
  return changes;
}

TEST(ChangeLines, AreAlignedAndSafeForATerminal) {
  Makers makers("/nonexistent", "/nonexistent");
  setenv("TZ", "UTC-2", 1);
  tzset();
  const std::string host = "10.0.0.7      02-00-00-00-00-07  (locally administered)  ";
  const std::string gap(32, ' ');
  EXPECT_EQ(FormatChanges(SomeChanges(), makers),
            "new      192.168.1.43  02-00-00-00-00-07  (locally administered)  büro?\n"
            "moved    " +
                host + "-" + gap +
                "         from 10.0.0.8  was 02-00-00-00-00-08\n"
                "renamed  " +
                host + "-" + gap +
                "         from a?\n"
                "back     0.0.0.1       -                  -                       " +
                std::string(50, 'n') +
                "  last seen 2026-11-24 04:05  was 02-00-00-00-00-08\n"
                "renamed  " +
                host + "-" + gap + "         from -\n");
  EXPECT_EQ(FormatChanges({}, makers), "");
}

TEST(ChangeLines, HaveInJsonWhatApplies) {
  Makers makers("/nonexistent", "/nonexistent");
  const std::string host =
      R"("address":"10.0.0.7","name":null,"hardware_address":"02-00-00-00-00-07",)"
      R"x("maker":"(locally administered)","up":true,"name_source":null)x";
  std::vector<Change> changes = SomeChanges();
  changes.erase(changes.begin());
  changes[2].Host.Known = changes[0].Host.Known;
  EXPECT_EQ(FormatChangesInJson(changes, makers),
            R"({"change":"moved",)" + host +
                R"(,"from":"10.0.0.8","was":"02-00-00-00-00-08"})"
                "\n"
                R"({"change":"renamed",)" +
                host +
                R"(,"from":"a\u001b"})"
                "\n"
                R"({"change":"back",)" +
                host +
                R"(,"was":"02-00-00-00-00-08","last_seen":"2026-11-24T02:05:09Z"})"
                "\n"
                R"({"change":"renamed",)" +
                host +
                R"(,"from":null})"
                "\n");
}

}  // namespace
}  // namespace hostsweep
