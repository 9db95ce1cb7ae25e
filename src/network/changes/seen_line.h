// A host that sweeps have seen, as a line of the file in which it is kept: a JSON object.
#pragma once

#include <string>

#include "network/changes/seen_host.h"
#include "network/report/makers.h"

namespace hostsweep {

// The line with its end: the fields that `JsonFields` writes, and then
//   first_seen, last_seen   times as `FormatTime` writes them
//   state                   here, missed, away, gone, replaced or left, as in `SeenHost`
//   looked_up               whether /etc/hosts and the name servers could be asked for the name
//   version                 the version of the form of the line, 1
std::string FormatSeenLine(const SeenHost& host, Makers& makers);

// Reads such a line, without its end. Throws `std::invalid_argument`, which says what is wrong with
// the line, if it has another form or a value that no sweep writes. The maker is not read: it
// follows from the hardware address.
SeenHost ParseSeenLine(const std::string& line);

}  // namespace hostsweep
