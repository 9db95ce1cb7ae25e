// The findings of a sweep: what is known about each address.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "network/plan/report_choices.h"

namespace hostsweep {

// Whether a host is at an address.
enum class Presence { Up, Absent, Unknown };

// Where a name comes from. The sources are asked in this order, and the first that has a name is
// believed.
enum class NameSource {
  None,    // there is no name
  Hosts,   // /etc/hosts
  Dns,     // the name servers
  Mdns,    // the host itself, by multicast DNS
  NetBios  // the host itself, by its NetBIOS node status
};

// The texts have no line feeds.
struct Finding {
  std::uint32_t Address = 0;
  std::optional<std::string> Name;  // empty for the root domain
  std::string HardwareAddress;      // empty if it is not known
  Presence Host = Presence::Unknown;
  bool HasTrouble = false;  // something went wrong, so something is not known
  bool IsReserved = false;  // no host can have the address
  NameSource Source = NameSource::None;
  bool IsLookedUp = false;  // /etc/hosts and the name servers have said whether they have a name
};

// True if the address could be given to a host: it has no host and no name, nothing has gone wrong,
// and it is not reserved.
bool IsFree(const Finding& finding);

// The word for the source in reports: hosts, dns, mdns or netbios; empty for `None`.
std::string_view WordFor(NameSource source);

bool IsSelected(const Finding& finding, Selection selection);

}  // namespace hostsweep
