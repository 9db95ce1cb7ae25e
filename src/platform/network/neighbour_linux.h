// Linux: the kernel's message on an entry of its ARP cache.
#pragma once

#include <optional>
#include <string_view>

#include "platform/network/neighbour.h"

namespace hostsweep {

// The entry that the body of an RTM_NEWNEIGH message, received at `now`, describes; nothing if it
// is not an IPv4 entry. `Requests` counts from `ucast_solicit` of arp(7), 3 by default.
std::optional<Neighbour> ParseNeighbour(std::string_view body, Clock::time_point now);

}  // namespace hostsweep
