// What sweeps have seen of one host at one address.
#pragma once

#include "network/changes/sweep_time.h"
#include "network/engine/finding.h"

namespace hostsweep {

// A host is identified by its card, that is, its hardware address. The card of a host beyond a
// router cannot be seen: that host is identified by its address.
struct SeenHost {
  enum class State {
    Here,      // the host has this address
    Missed,    // the same, but the last complete sweep of the address has not found the host
    Away,      // the same, but the host was seen elsewhere by a sweep that left this address out
    Gone,      // the host was called gone
    Replaced,  // another host has the address; where this host is, is not known
    Left       // the host is not here, and was seen elsewhere since
  };

  // What is known: `Host` says whether the host was up in the last sweep of the address; the name
  // can be from an earlier sweep.
  Finding Known;
  SweepTime FirstSeen;
  SweepTime LastSeen;
  State Whereabouts = State::Here;
};

// True if the host was seen here last, and was not called gone.
inline bool IsHere(const SeenHost& host) {
  return host.Whereabouts == SeenHost::State::Here || host.Whereabouts == SeenHost::State::Missed;
}

// True if the host has the address. At most one host has an address.
inline bool HasAddress(const SeenHost& host) {
  return IsHere(host) || host.Whereabouts == SeenHost::State::Away;
}

}  // namespace hostsweep
