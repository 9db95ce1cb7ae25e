// The arguments of the program, and the range of addresses that they describe.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/text/text.h"

namespace hostsweep {

// The addresses to sweep. Each is `Prefix`, "." and a host number; there are `HostCount` host
// numbers, from `FirstHost` on. `HostCount` is at least 1 and `EndOf` at most 256. Nothing else is
// checked: `FirstHost` can be negative, and `Prefix` is the text that the user typed.
struct SweepRange {
  Text Prefix;
  std::int64_t FirstHost = 0;
  std::int64_t HostCount = 0;
  bool LiveNamesOnly = false;  // report no name for an address without a hardware address
};

// One past the last host number: `FirstHost` + `HostCount` with 64-bit wrap-around.
std::int64_t EndOf(const SweepRange& range);

// Reads the arguments: the program's path, the first address, the number of addresses, optionally
// "True" for `LiveNamesOnly`, optionally a start delay in milliseconds. Further arguments are
// ignored. Waits for a delay below 20000, with `DoEvents`, before address and count are checked.
// Calls `Quit(0)` if the arguments are unusable.
SweepRange ReadSweepRange(const std::vector<Text>& arguments);

}  // namespace hostsweep
