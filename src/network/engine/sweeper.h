// The sweep of many addresses at a time: when each is probed, looked for and named. It neither
// waits nor prints.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "network/engine/address_walk.h"
#include "network/engine/finding.h"
#include "network/engine/names.h"
#include "network/engine/target.h"
#include "network/engine/troubles.h"
#include "network/plan/network.h"
#include "platform/clock.h"
#include "platform/network/network_stack.h"
#include "platform/network/probe_sockets.h"
#include "platform/poll.h"

namespace hostsweep {

// Leads the addresses of the networks, in their order, through the search for a host and for a
// name. The functions throw `std::system_error` if the system cannot be asked.
class Sweeper {
 public:
  // At most `jobs` addresses are swept at a time, not counting hosts that are only asked for their
  // names. Without `usesNames` nobody is asked for names. `networks` and `stack` must outlive the
  // sweeper.
  Sweeper(const std::vector<Network>& networks, std::size_t jobs, bool usesNames,
          NetworkStack& stack);

  // Does all that can be done at this time, with the descriptors that are ready. Begins further
  // addresses only if `mayBegin`.
  void Proceed(const std::vector<Watched>& ready, Clock::time_point now, bool mayBegin);

  // Appends the descriptors to wait for before the next `Proceed`.
  void Watch(std::vector<Watched>& descriptors) const;

  // The time at which `Proceed`, called with this `mayBegin`, has something to do even if nothing
  // is ready; nothing if there is no such time.
  [[nodiscard]] std::optional<Clock::time_point> NextTime(Clock::time_point now,
                                                          bool mayBegin) const;

  // The next finding in the order of the addresses, once it is known; each is given once.
  std::optional<Finding> Next();

  // True if no more findings will come.
  [[nodiscard]] bool IsDone() const { return walk_.IsAtEnd() && targets_.empty(); }

  // The number of addresses whose sweep has ended, and their troubles.
  [[nodiscard]] std::uint64_t DoneCount() const { return doneCount_; }
  [[nodiscard]] const TroubleCounts& Troubles() const { return troubles_; }

 private:
  using Key = std::uint64_t;  // the number of an address in the order of the sweep
  using GatewayKey = std::pair<int, std::uint32_t>;  // a device and an address

  Target& At(Key key) { return targets_[static_cast<std::size_t>(key - firstKey_)]; }
  void BeginAddress();
  void SendProbes(Clock::time_point now);
  bool SendProbe(Key key, Clock::time_point now);
  void HandleAnswer(const ProbeAnswer& answer, Clock::time_point now);
  void Look(Clock::time_point now);
  void LookFor(Key key, const NeighbourTable& table, Clock::time_point now);
  void HandleFor(Key key, const SearchEvent& event, Clock::time_point now);
  void ProceedWithNames(const std::vector<Watched>& ready, Clock::time_point now);
  void AskHosts(Clock::time_point now);
  void Settle(Key key);
  [[nodiscard]] bool IsOwn(std::uint32_t address) const;
  [[nodiscard]] bool CanBegin() const;
  [[nodiscard]] std::size_t SearchCount() const;
  const LinkState& LinkOf(int device);

  std::size_t jobs_;
  NetworkStack& stack_;
  AddressWalk walk_;
  std::optional<Names> names_;  // nothing if nobody is asked for names
  ProbeSockets probes_;

  std::deque<Target> targets_;                     // begun and not given out
  Key firstKey_ = 0;                               // the key of the first target
  std::unordered_map<std::uint32_t, Key> inWork_;  // targets that are not done, by address
  std::uint64_t doneCount_ = 0;
  TroubleCounts troubles_;

  std::deque<Key> toProbe_;
  std::deque<Key> toAsk_;                       // hosts that are to be asked for their names
  Clock::time_point nextProbe_;                 // the pace of probes
  std::optional<Clock::time_point> fullSince_;  // no probe could be sent since then
  std::optional<Clock::time_point> nextLook_;
  std::map<int, LinkState> links_;                       // since `Proceed` began
  std::map<GatewayKey, Clock::time_point> heardBeyond_;  // when a host beyond a gateway answered
};

}  // namespace hostsweep
