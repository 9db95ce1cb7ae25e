// The reasons for which a sweep is incomplete.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace hostsweep {

// A reason for which one address was not swept, or not wholly.
enum class Trouble : std::uint8_t {
  NoServerReply,  // no name server answered
  ServerRefused,  // a name server refused to answer
  ServerFailed,   // a name server failed, or the answer could not be understood
  ProbeFailed,    // ping sent nothing
  CommandFailed,  // a command could not be started, was killed, or gave no whole answer
  NoRoute,        // there is no route to the address, which was not swept
  NotAsked,       // a program is missing, which has been said
};
constexpr std::size_t TroubleCount = 7;

// The troubles of one address, each at most once.
class TroubleSet {
 public:
  void Add(Trouble trouble) { has_[static_cast<std::size_t>(trouble)] = true; }
  [[nodiscard]] bool Has(Trouble trouble) const { return has_[static_cast<std::size_t>(trouble)]; }
  [[nodiscard]] bool IsEmpty() const { return *this == TroubleSet(); }
  friend bool operator==(const TroubleSet&, const TroubleSet&) = default;

 private:
  std::array<bool, TroubleCount> has_{};
};

// How many addresses have each trouble.
class TroubleCounts {
 public:
  void Add(const TroubleSet& troubles, std::uint32_t address);

  [[nodiscard]] bool IsEmpty() const;

  // A sentence for each trouble but `NotAsked`: for how many of `total` addresses, and what to do,
  // with the lowest of them as an example.
  [[nodiscard]] std::vector<std::string> Describe(std::uint64_t total) const;

 private:
  std::array<std::uint64_t, TroubleCount> counts_{};
  std::array<std::uint32_t, TroubleCount> examples_{};
};

}  // namespace hostsweep
