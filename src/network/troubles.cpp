#include "network/troubles.h"

#include <algorithm>
#include <string_view>

#include "network/address.h"

namespace hostsweep {
namespace {

struct Words {
  Trouble Kind;
  const char* Begin;
  const char* End;  // with "ADDRESS" in the place of an example
};

constexpr std::array<Words, TroubleCount - 1> AllWords = {{
    {Trouble::NoServerReply, "no name server answered",
     "check the network and the servers in /etc/resolv.conf"},
    {Trouble::ServerRefused, "the name server refused to answer",
     "ask its keeper, or name another in /etc/resolv.conf"},
    {Trouble::ServerFailed, "the name server failed", "try /usr/bin/host ADDRESS"},
    {Trouble::ProbeFailed, "ping could not probe", "try ping ADDRESS"},
    {Trouble::CommandFailed, "a command could not be run, was killed or gave no whole answer",
     "try ping ADDRESS and /usr/bin/host ADDRESS, and check the limits on processes and memory"},
    {Trouble::NoRoute, "there is no route and nothing was swept",
     "check the network devices and routes"},
}};

std::string WithExample(std::string text, std::uint32_t address) {
  constexpr std::string_view Placeholder = "ADDRESS";
  for (std::size_t at = text.find(Placeholder); at != std::string::npos;
       at = text.find(Placeholder)) {
    text.replace(at, Placeholder.size(), FormatAddress(address));
  }
  return text;
}

}  // namespace

void TroubleCounts::Add(const TroubleSet& troubles, std::uint32_t address) {
  for (std::size_t i = 0; i < TroubleCount; ++i) {
    if (!troubles.Has(static_cast<Trouble>(i))) continue;
    if (counts_[i] == 0 || address < examples_[i]) examples_[i] = address;
    ++counts_[i];
  }
}

bool TroubleCounts::IsEmpty() const {
  return std::all_of(counts_.begin(), counts_.end(),
                     [](std::uint64_t count) { return count == 0; });
}

std::vector<std::string> TroubleCounts::Describe(std::uint64_t total) const {
  std::vector<std::string> sentences;
  for (const Words& words : AllWords) {
    const auto kind = static_cast<std::size_t>(words.Kind);
    const std::uint64_t count = counts_[kind];
    if (count == 0) continue;
    sentences.push_back(std::string(words.Begin) + " for " + std::to_string(count) + " of " +
                        std::to_string(total) +
                        " addresses: " + WithExample(words.End, examples_[kind]));
  }
  return sentences;
}

}  // namespace hostsweep
