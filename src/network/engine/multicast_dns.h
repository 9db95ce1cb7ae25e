// Multicast DNS (RFC 6762): which questions to send for the names of hosts, and which names their
// answers tell. Without clock and socket.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "network/engine/dns_message.h"

namespace hostsweep {

// The group and the port of multicast DNS (RFC 6762, section 3).
constexpr std::uint32_t MulticastDnsGroup = 0xE00000FB;  // 224.0.0.251
constexpr std::uint16_t MulticastDnsPort = 5353;

// A host is believed only about its own address: a pointer or an address record counts if it comes
// from the very address that it names, by the device that the host is asked on, and the name ends
// in ".local". Many hosts answer no reverse lookup, but give their address record beside the
// services that they offer; so a browse asks for all kinds of services (RFC 6763, section 9), for
// the services of each kind, and for the host and the address of each service.
class MulticastDns {
 public:
  struct Query {
    int Device = 0;
    std::string Message;
  };

  // Asks for the name of the address on this device.
  void Ask(std::uint32_t address, int device);

  // Asks for the services on this device, again if that has been done before.
  void Browse(int device);

  // Takes the next query to send; nothing if no query is left.
  std::optional<Query> Next();
  [[nodiscard]] bool HasNext() const { return !questions_.empty(); }

  // Takes a message that has come from this address by this device.
  void Hear(int device, std::uint32_t sender, std::string_view message);

  // The name in a pointer record of the host, as in `WithCharacters`; the first in alphabetical
  // order if there are several names. Nothing if there is no name.
  [[nodiscard]] std::optional<std::string> PointerName(std::uint32_t address) const;

  // The same from its address records.
  [[nodiscard]] std::optional<std::string> AddressName(std::uint32_t address) const;

  // Forgets the host: nothing more is asked for it.
  void Forget(std::uint32_t address);

 private:
  using Place = std::pair<int, std::uint32_t>;  // a device, and an address on it

  struct Host {
    int Device = 0;
    int FurtherCount = 0;  // the questions that its services have led to
  };

  struct Names {
    std::optional<std::string> Pointer;
    std::optional<std::string> Address;
  };

  // What has been asked by a browse.
  struct Browsed {
    std::set<std::pair<std::string, int>> Questions;
    std::size_t KindCount = 0;
  };

  void HearRecord(const Place& sender, const DnsRecord& record);
  void AskForKind(const std::string& kind);
  void AskFurther(const Place& sender, const DnsRecord& record);
  bool AskOnce(int device, DnsQuestion question);
  [[nodiscard]] bool IsAsked(int device, const DnsQuestion& question) const;
  [[nodiscard]] Names NamesOf(std::uint32_t address) const;

  std::map<std::uint32_t, Host> hosts_;  // the hosts whose names are asked for
  std::map<Place, Names> heard_;         // also of hosts whose names may be asked for later
  std::deque<std::pair<int, DnsQuestion>> questions_;  // to send, each on its device
  std::map<int, Browsed> browsed_;                     // by device
};

}  // namespace hostsweep
