// What sweeps have seen of one host at one address.
#pragma once

#include "network/changes/sweep_time.h"
#include "network/engine/finding.h"

namespace hostsweep {

// A host is its card, which its hardware address names. A host beyond a router has none that could
// be seen: it is its address.
struct SeenHost {
  enum class State {
    Here,      // this address is the host's
    Missed,    // the same, but the last complete sweep of the address has not found it
    Away,      // the same, but the host was seen elsewhere by a sweep that left this address out
    Gone,      // was called gone
    Replaced,  // another host has the address; where this one is, is not known
    Left       // is not here, and was seen elsewhere since
  };

  // The last that is known: `Host` says whether it was up in the last sweep of the address, and the
  // name is the one that holds.
  Finding Known;
  SweepTime FirstSeen;
  SweepTime LastSeen;
  State Whereabouts = State::Here;
};

// True if the host was seen here last, and was not called gone.
inline bool IsHere(const SeenHost& host) {
  return host.Whereabouts == SeenHost::State::Here || host.Whereabouts == SeenHost::State::Missed;
}

// True if the address is the host's: at most one host has an address.
inline bool HasAddress(const SeenHost& host) {
  return IsHere(host) || host.Whereabouts == SeenHost::State::Away;
}

}  // namespace hostsweep
