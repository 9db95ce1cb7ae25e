// The findings of a sweep: what is known about each address.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "network/plan/report_choices.h"

namespace hostsweep {

// Whether a host is at an address.
enum class Presence { Up, Absent, Unknown };

// The texts have no line feeds.
struct Finding {
  std::uint32_t Address = 0;
  std::optional<std::string> Name;  // from the reverse lookup; that of the root domain is empty
  std::string HardwareAddress;      // empty if there is none
  Presence Host = Presence::Unknown;
  bool HasTrouble = false;  // something has gone wrong, and is not known
  bool IsReserved = false;  // no host can have the address
};

// True if a host could be given the address: there is none, it has no name, nothing has gone wrong,
// and it is not reserved.
bool IsFree(const Finding& finding);

bool IsSelected(const Finding& finding, Selection selection);

}  // namespace hostsweep
