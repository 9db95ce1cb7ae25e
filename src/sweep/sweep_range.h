// The arguments of the program and the range of addresses that they name.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/text.h"

namespace hostsweep {

// The addresses to sweep: `Prefix`, ".", and each host number from `FirstHost` on, `HostCount` of
// them. `HostCount` is at least 1 and `EndOf` at most 256. Nothing else is certain: `FirstHost` may
// be negative, and `Prefix` is whatever was typed.
struct SweepRange {
  Text Prefix;
  std::int64_t FirstHost = 0;
  std::int64_t HostCount = 0;
  bool LiveNamesOnly = false;  // report no name for an address without a hardware address
};

// The host number behind the last one: `FirstHost` + `HostCount` with 64-bit wrap-around.
std::int64_t EndOf(const SweepRange& range);

// Reads the arguments: the program's path, the first address, the number of addresses, optionally
// "True" for `LiveNamesOnly`, optionally a start delay in milliseconds; any more are ignored.
// Spends the delay if it is less than 20000, with `DoEvents`, before it looks at address and count.
// Ends the program with exit code 0, by `Quit`, if the arguments name no range.
SweepRange ReadSweepRange(const std::vector<Text>& arguments);

}  // namespace hostsweep
