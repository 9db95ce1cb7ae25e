// What the sweep finds out about one address, and the line that reports it.
#pragma once

#include "platform/text/text.h"

namespace hostsweep {

struct HostRecord {
  Text Address;
  Text Name;             // what the reverse lookup gave, until `DecideName` has replaced it
  Text HardwareAddress;  // from the ARP cache; empty if there is none
};

// The name to report for a record whose name is from the reverse lookup. A name equal to the
// address counts as none: the result is "[Unknown Device]" with a hardware address, and empty
// without one. With `liveNamesOnly` every name without a hardware address is empty.
Text DecideName(const HostRecord& record, bool liveNamesOnly);

// The report line without its line end: the three fields, unchanged, joined by "=".
Text FormatReportLine(const HostRecord& record);

}  // namespace hostsweep
