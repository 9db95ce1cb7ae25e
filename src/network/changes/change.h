// A difference between what earlier sweeps have seen and what this one has found.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "network/changes/seen_host.h"

namespace hostsweep {

struct Change {
  enum class Kind { New, Gone, Moved, Renamed, Other, Back };

  Kind What = Kind::New;
  SeenHost Host;                        // as it is known now
  std::uint32_t FromAddress = 0;        // Moved: where the card was
  std::optional<std::string> FromName;  // Renamed: the name before, if there was a name
  std::string WasCard;                  // Other, Moved, Back: the card that had the address, if any
  SweepTime LastSeen;                   // Gone, Back: the last time before
};

// The word for the change in reports: new, gone, moved, renamed, other or back.
std::string_view WordFor(Change::Kind what);

}  // namespace hostsweep
