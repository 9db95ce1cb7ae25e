// The record that the sweep makes of one address, and the line that reports it.
#pragma once

#include "platform/text/text.h"

namespace hostsweep {

struct HostRecord {
  Text Address;
  Text Name;             // from the reverse lookup; equal to `Address` if there is none
  Text HardwareAddress;  // from the ARP cache; empty if there is none
};

// The name to report. A name equal to the address counts as none: the result is "[Unknown Device]"
// with a hardware address, and empty without one. With `liveNamesOnly` every name without a
// hardware address is empty.
Text DecideName(const HostRecord& record, bool liveNamesOnly);

// The report line without its line end: the address, the result of `DecideName` and the hardware
// address, unchanged, joined by "=".
Text FormatReportLine(const HostRecord& record, bool liveNamesOnly);

}  // namespace hostsweep
