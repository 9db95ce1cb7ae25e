// The record that the sweep makes of one address, and the line that reports it.
#pragma once

#include "platform/text/text.h"

namespace hostsweep {

struct HostRecord {
  Text Address;
  Text Name;             // from the reverse lookup; equal to `Address` if there is none
  Text HardwareAddress;  // from the ARP cache; empty if there is none
};

// The name to report. A name equal to the address counts as no name: the result is "[Unknown
// Device]" with a hardware address, and empty without a hardware address. With `liveNamesOnly` it
// is always empty without a hardware address.
Text DecideName(const HostRecord& record, bool liveNamesOnly);

// The report line without its line end: the address, the result of `DecideName` and the hardware
// address, unchanged, joined by "=".
Text FormatReportLine(const HostRecord& record, bool liveNamesOnly);

}  // namespace hostsweep
