// The reasons for which a sweep is incomplete.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace hostsweep {

// A reason for which an address was not swept, not fully swept, or not looked up.
enum class Trouble : std::uint8_t {
  NoServerReply,  // no name server answered
  ServerRefused,  // a name server refused to answer
  ServerFailed,   // a name server failed, or gave an answer that cannot be read
  HostsFile,      // /etc/hosts cannot be read
  Lack,           // descriptors or memory are lacking
  Forbidden,      // a firewall forbids the probe
  NotSent,        // the probe could not be sent
  TableFull,      // the kernel's table of neighbours stayed full
  NotAsked,       // the kernel did not ask by ARP
  TooLong,        // the kernel was still asking when the search ended
  GatewaySilent,  // the gateway did not answer
  Changed,        // the network changed during the sweep
  LinkDown,       // the device has no link; the address was not swept
  NoRoute,        // there is no route to the address, which was not swept
};
constexpr auto TroubleCount = static_cast<std::size_t>(Trouble::NoRoute) + 1;

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
  // `way`: the gateway or the device by which the address is reached, for a user to read.
  void Add(const TroubleSet& troubles, std::uint32_t address, const std::string& way);

  [[nodiscard]] bool AreNone() const;

  // A sentence for each trouble: how many of `total` addresses have it, what it is, and what to do,
  // with the lowest of these addresses and its way as an example.
  [[nodiscard]] std::vector<std::string> Describe(std::uint64_t total) const;

 private:
  struct Count {
    std::uint64_t Addresses = 0;
    std::uint32_t Example = 0;
    std::string Way;  // of the example
  };
  std::array<Count, TroubleCount> counts_;
};

}  // namespace hostsweep
