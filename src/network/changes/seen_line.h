// A host that sweeps have seen, as a line of the file that it is kept in: an object of JSON.
#pragma once

#include <string>

#include "network/changes/seen_host.h"
#include "network/report/makers.h"

namespace hostsweep {

// The line with its end: the fields that `JsonFields` writes, and then
//   first_seen, last_seen   times as `FormatTime` writes them
//   state                   here, missed, away, gone, replaced or left, as in `SeenHost`
//   looked_up               whether what /etc/hosts and the name servers say of the name was known
//   version                 of the form of the line, 1
std::string FormatSeenLine(const SeenHost& host, Makers& makers);

// Reads such a line, without its end. Throws `std::invalid_argument` that says what the line is if
// it is not one, or has a value that no sweep writes. A maker is not read: it follows from the
// hardware address.
SeenHost ParseSeenLine(const std::string& line);

}  // namespace hostsweep
