#include "network/engine/troubles.h"

#include <algorithm>
#include <string_view>

#include "network/plan/address.h"

namespace hostsweep {
namespace {

// What did not happen to the addresses.
constexpr const char* NotSwept = "swept";
constexpr const char* NotFullySwept = "fully swept";
constexpr const char* NotLookedUp = "looked up";

// `Reason` has "ADDRESS" in the place of an example, or "WAY" in the place of the example's gateway
// or device.
struct Words {
  Trouble Kind;
  const char* Missing;
  const char* Reason;
};

constexpr std::array<Words, TroubleCount> AllWords = {{
    {Trouble::NoServerReply, NotLookedUp,
     "no name server answered; check the network and the servers in /etc/resolv.conf"},
    {Trouble::ServerRefused, NotLookedUp,
     "the name server refused to answer; "
     "ask its administrator, or name another in /etc/resolv.conf"},
    {Trouble::ServerFailed, NotLookedUp,
     "the name server failed or gave an incomplete answer; try /usr/bin/host ADDRESS"},
    {Trouble::HostsFile, "looked up in /etc/hosts", "it could not be read; check its permissions"},
    {Trouble::Lack, "fully looked up",
     "descriptors or memory ran out; check the limits: ulimit -a"},
    {Trouble::Forbidden, NotFullySwept,
     "a firewall of this machine forbids the probe; "
     "allow ICMP echo requests and UDP to port 9, and try ping ADDRESS"},
    {Trouble::NotSent, NotFullySwept,
     "the probe could not be sent; check routes and permissions, and try ping ADDRESS"},
    {Trouble::TableFull, NotFullySwept,
     "the kernel's table of neighbours stayed full; "
     "use fewer --jobs, or raise net.ipv4.neigh.default.gc_thresh3"},
    {Trouble::NotAsked, NotFullySwept,
     "the probe brought no entry into the ARP cache; "
     "check routes and permissions, and try ping ADDRESS"},
    {Trouble::TooLong, NotFullySwept, "the kernel was still asking by ARP; try ping ADDRESS"},
    {Trouble::GatewaySilent, NotFullySwept, "WAY did not answer; check it and the way to it"},
    {Trouble::Changed, NotFullySwept,
     "the network changed during the sweep; check the network devices and routes, and sweep again"},
    {Trouble::LinkDown, NotSwept, "WAY is down; set the device up or connect its cable"},
    {Trouble::NoRoute, NotSwept, "no route; check the network devices and routes"},
}};

std::string Replaced(std::string text, std::string_view placeholder, const std::string& value) {
  const std::size_t at = text.find(placeholder);
  return at == std::string::npos ? text : text.replace(at, placeholder.size(), value);
}

}  // namespace

void TroubleCounts::Add(const TroubleSet& troubles, std::uint32_t address, const std::string& way) {
  for (std::size_t i = 0; i < TroubleCount; ++i) {
    if (!troubles.Has(static_cast<Trouble>(i))) continue;
    Count& count = counts_[i];
    const bool isExample = count.Addresses == 0 || address < count.Example;
    if (isExample) count = {count.Addresses, address, way};
    ++count.Addresses;
  }
}

bool TroubleCounts::AreNone() const {
  return std::all_of(counts_.begin(), counts_.end(),
                     [](const Count& count) { return count.Addresses == 0; });
}

std::vector<std::string> TroubleCounts::Describe(std::uint64_t total) const {
  std::vector<std::string> sentences;
  for (const Words& words : AllWords) {
    const Count& count = counts_[static_cast<std::size_t>(words.Kind)];
    if (count.Addresses == 0) continue;
    const std::string reason = Replaced(words.Reason, "WAY", count.Way);
    sentences.push_back(std::to_string(count.Addresses) + " of " + std::to_string(total) +
                        (total == 1 ? " address " : " addresses ") +
                        (count.Addresses == 1 ? "was not " : "were not ") + words.Missing + ": " +
                        Replaced(reason, "ADDRESS", FormatAddress(count.Example)));
  }
  return sentences;
}

}  // namespace hostsweep
