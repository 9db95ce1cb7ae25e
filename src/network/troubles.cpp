#include "network/troubles.h"

#include <algorithm>

namespace hostsweep {
namespace {

struct Words {
  Trouble Kind;
  const char* Begin;
  const char* End;
};

constexpr std::array<Words, TroubleCount - 1> AllWords = {{
    {Trouble::NoServerReply, "no name server answered",
     "check the network and the servers in /etc/resolv.conf"},
    {Trouble::ServerRefused, "the name server refused to answer",
     "ask its keeper, or name another in /etc/resolv.conf"},
    {Trouble::ServerFailed, "the name server failed",
     "try host(1) on one of them to see its error"},
    {Trouble::ProbeFailed, "ping could not probe", "try ping on one of them to see its error"},
    {Trouble::CommandFailed, "a command could not be run, was killed or gave no whole answer",
     "try ping, /usr/bin/host and Arp, and check the limits on processes, descriptors and memory"},
    {Trouble::NoRoute, "there is no route and nothing was swept",
     "check the network devices and routes"},
}};

}  // namespace

void TroubleCounts::Add(const TroubleSet& troubles) {
  for (std::size_t i = 0; i < TroubleCount; ++i) {
    if (troubles.Has(static_cast<Trouble>(i))) ++counts_[i];
  }
}

bool TroubleCounts::IsEmpty() const {
  return std::all_of(counts_.begin(), counts_.end(),
                     [](std::uint64_t count) { return count == 0; });
}

std::vector<std::string> TroubleCounts::Describe(std::uint64_t total) const {
  std::vector<std::string> sentences;
  for (const Words& words : AllWords) {
    const std::uint64_t count = counts_[static_cast<std::size_t>(words.Kind)];
    if (count == 0) continue;
    sentences.push_back(std::string(words.Begin) + " for " + std::to_string(count) + " of " +
                        std::to_string(total) + " addresses: " + words.End);
  }
  return sentences;
}

}  // namespace hostsweep
