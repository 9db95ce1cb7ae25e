// Waiting for descriptors, as poll(2) does.
#pragma once

#include <chrono>
#include <optional>
#include <vector>

namespace hostsweep {

// A descriptor to wait for: until it can be read, if `Reads`, or written, if `Writes`.
struct Watched {
  int Descriptor = -1;
  bool Reads = false;
  bool Writes = false;
  bool IsReady = false;   // it can be read or written, as asked, or has an error
  bool IsBroken = false;  // for a pipe that is written: its reader is gone
};

// Waits until one of the descriptors is ready, or the time, 0 or more, has passed; without a time,
// as long as it takes. Returns early after a signal. Throws `std::system_error` if waiting fails.
void WaitFor(std::vector<Watched>& descriptors, std::optional<std::chrono::milliseconds> time);

}  // namespace hostsweep
