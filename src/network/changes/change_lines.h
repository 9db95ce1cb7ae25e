// The report of changes.
#pragma once

#include <string>
#include <vector>

#include "network/changes/change.h"
#include "network/report/makers.h"

namespace hostsweep {

// Columns for the eye, as wide as these changes need: what has changed, address, hardware address,
// maker, name, and what was before; "-" where there is nothing, times in local time. None of the
// bytes can steer a terminal.
std::string FormatChanges(const std::vector<Change>& changes, Makers& makers);

// An object on a line of its own for each change: "change", what `JsonFields` writes, and those of
// these keys that apply:
//   from       the address before (moved), or the name before (renamed), null if there was no name
//   was        the hardware address of the card that had the address (other, moved, back)
//   last_seen  when the host was seen before (gone, back), as `FormatTime` writes it
std::string FormatChangesInJson(const std::vector<Change>& changes, Makers& makers);

}  // namespace hostsweep
