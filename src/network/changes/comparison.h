// The comparison of a sweep with what earlier sweeps have seen. Without clock, file or socket.
#pragma once

#include <cstddef>
#include <vector>

#include "network/changes/change.h"
#include "network/changes/seen_host.h"
#include "network/engine/finding.h"

namespace hostsweep {

// Only hosts that are up count. Each address has at most one change, the first that applies:
//
//   at this address was           now                                            change
//   anything else                 a card known from another address, which was   Moved
//                                 swept, too, and no longer has it
//   another card, not gone        a card that the address never had              Other
//   nothing, or a card that is    a card, or a host without a card, that the     New
//   gone                          address never had
//   this card, called gone, or    this card                                      Back
//   displaced by a card that
//   has left or is gone
//   this card, another name       this card                                      Renamed
//   this card                     nothing, for the second complete sweep, and    Gone
//                                 the card is at no address that was swept
//
// Cards can take turns at an address: after the first time that is no change. If one of two hosts
// has no card, nothing tells them apart, and they count as the same host. A card that leaves one of
// its addresses, and keeps another, is not called gone there, then or later. An address without a
// finding was not swept, and keeps what it has. A card that has left such an address for an address
// that was swept is new there, and is not called gone here later.
class Comparison {
 public:
  // `seen`: each card, or host without a card, at most once for each address; at most one of them
  // has the address (`HasAddress`). `time`: when the sweep is made.
  Comparison(std::vector<SeenHost> seen, SweepTime time);

  // Adds a finding of the sweep, at most one for each address. Changes have the order of the
  // findings. Findings that make no difference take no memory.
  void Add(const Finding& finding);

  // Compares. To be called once, when all findings have been added. Only a complete sweep calls a
  // host gone.
  void End(bool isComplete);

  // After `End`: the changes, and what has been seen now, by address and card.
  [[nodiscard]] const std::vector<Change>& Changes() const { return changes_; }
  [[nodiscard]] const std::vector<SeenHost>& Seen() const { return seen_; }

  // The number of addresses at which a host was up.
  [[nodiscard]] std::size_t UpCount() const { return upCount_; }

 private:
  std::vector<SeenHost> seen_;  // by address
  SweepTime time_;
  std::vector<Finding> findings_;
  std::size_t upCount_ = 0;
  std::vector<Change> changes_;
};

}  // namespace hostsweep
