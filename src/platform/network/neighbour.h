// The entries of the ARP cache, which systems also call neighbours.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"

namespace hostsweep {

// The states of arp(7). Systems that have fewer use `Incomplete`, `Failed` and `Reachable`.
enum class NeighbourState {
  None,        // nothing is known, and nothing has been asked
  Incomplete,  // the hardware address is being asked for by broadcast
  Failed,      // nothing has answered
  Reachable,   // confirmed lately
  Stale,       // not confirmed lately, and not used since
  Delay,       // used since; to be asked for soon
  Probe,       // being asked for at the hardware address that it had
  NoArp,       // needs no asking
  Permanent    // set by an administrator
};

struct Neighbour {
  int Device = 0;             // the system's number of the device
  std::uint32_t Address = 0;  // in host byte order
  NeighbourState State = NeighbourState::None;
  Clock::time_point Since;      // the state's beginning, at most 20 ms too late
  Clock::time_point Confirmed;  // the last confirmation, likewise
  std::optional<int> Requests;  // broadcasts sent so far if incomplete, where the system tells
  std::string HardwareAddress;  // bytes; empty if it is not known
};

// The entries of all devices at one time.
class NeighbourTable {
 public:
  explicit NeighbourTable(std::vector<Neighbour> entries);

  // The entry of the address on the device; null if there is none.
  [[nodiscard]] const Neighbour* Find(int device, std::uint32_t address) const;

 private:
  std::vector<Neighbour> entries_;  // sorted
};

}  // namespace hostsweep
