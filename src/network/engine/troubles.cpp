#include "network/engine/troubles.h"

#include <algorithm>
#include <string_view>

#include "network/plan/address.h"

namespace hostsweep {
namespace {

// With "ADDRESS" in the place of an example, and "WAY" in the place of its gateway or device.
struct Words {
  Trouble Kind;
  const char* Begin;
  const char* End;
};

constexpr std::array<Words, TroubleCount> AllWords = {{
    {Trouble::NoServerReply, "no name server answered",
     "check the network and the servers in /etc/resolv.conf"},
    {Trouble::ServerRefused, "the name server refused to answer",
     "ask its keeper, or name another in /etc/resolv.conf"},
    {Trouble::ServerFailed, "the name server failed", "try /usr/bin/host ADDRESS"},
    {Trouble::HostsFile, "/etc/hosts could not be read", "check its permissions"},
    {Trouble::Lack, "descriptors or memory were lacking", "check the limits on them: ulimit -a"},
    {Trouble::Forbidden, "a firewall of this machine forbids the probe",
     "allow ICMP echo requests and UDP to port 9, and try ping ADDRESS"},
    {Trouble::NotSent, "the probe could not be sent",
     "check routes and permissions, and try ping ADDRESS"},
    {Trouble::TableFull, "the kernel's table of neighbours stayed full",
     "use fewer --jobs, or raise net.ipv4.neigh.default.gc_thresh3"},
    {Trouble::NotAsked, "the probe brought no entry into the ARP cache",
     "check routes and permissions, and try ping ADDRESS"},
    {Trouble::TooLong, "the kernel was still asking by ARP", "try ping ADDRESS"},
    {Trouble::GatewaySilent, "WAY did not answer", "check it and the way to it"},
    {Trouble::Changed, "the network changed during the sweep",
     "check the network devices and routes, and sweep again"},
    {Trouble::LinkDown, "WAY is down and nothing was swept",
     "set the device up or connect its cable"},
    {Trouble::NoRoute, "there is no route and nothing was swept",
     "check the network devices and routes"},
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
    sentences.push_back(
        Replaced(words.Begin, "WAY", count.Way) + " for " + std::to_string(count.Addresses) +
        " of " + std::to_string(total) +
        " addresses: " + Replaced(words.End, "ADDRESS", FormatAddress(count.Example)));
  }
  return sentences;
}

}  // namespace hostsweep
