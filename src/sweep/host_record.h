// What the sweep finds out about one address, and how it is reported.
#pragma once

#include "platform/text.h"

namespace hostsweep {

struct HostRecord {
  Text Address;
  Text Name;             // from the reverse lookup; equal to `Address` if there is none
  Text HardwareAddress;  // from the ARP cache; empty if there is none
};

// The name to report: the record's own; "[Unknown Device]" for a hardware address without a name;
// empty for neither, and, if `liveNamesOnly`, whenever there is no hardware address.
Text DecideName(const HostRecord& record, bool liveNamesOnly);

// The report line without its line end: the three fields as they are, joined by "=".
Text FormatReportLine(const HostRecord& record);

}  // namespace hostsweep
