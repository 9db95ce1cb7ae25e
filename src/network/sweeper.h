// The sweep of many addresses at a time: when which command is started. It neither waits nor
// prints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <vector>

#include "network/address_walk.h"
#include "network/finding.h"
#include "network/lookup.h"
#include "network/neighbourhood.h"
#include "network/network.h"
#include "network/troubles.h"
#include "platform/command_set.h"

namespace hostsweep {

// Takes the addresses of the networks through their lookups, in their order. Probes are mostly
// waiting, so they run ahead of the lookups of earlier addresses.
class Sweeper {
 public:
  // At most `jobs` addresses are in work at a time. The other objects must outlive this one.
  Sweeper(const std::vector<Network>& networks, std::size_t jobs, Programs programs,
          const Neighbourhood& neighbourhood, CommandSet& commands);

  // Starts the commands that may run now; those of further addresses only if `mayBegin`. Where the
  // system lacks processes or descriptors while others run, a later call starts the rest.
  void Start(Clock::time_point now, bool mayBegin);

  // Takes the result of a command.
  void Take(const CommandSet::Result& result, Clock::time_point now);

  // The next finding in the order of the addresses, once it is known; each is given once.
  std::optional<Finding> Next();

  // True if no more findings will come.
  [[nodiscard]] bool IsDone() const { return walk_.IsAtEnd() && lookups_.empty(); }

  // The time at which `Start`, called with this `mayBegin`, has something to do even if no command
  // has ended; nothing if there is no such time.
  [[nodiscard]] std::optional<Clock::time_point> WakeTime(bool mayBegin) const;

  // The number of addresses whose sweep has ended, and their troubles.
  [[nodiscard]] std::uint64_t DoneCount() const { return doneCount_; }
  [[nodiscard]] const TroubleCounts& Troubles() const { return troubles_; }

 private:
  using Key = std::uint64_t;  // the number of an address in the order of the sweep

  Lookup& At(Key key) { return lookups_[static_cast<std::size_t>(key - firstKey_)]; }
  [[nodiscard]] const Lookup& At(Key key) const {
    return lookups_[static_cast<std::size_t>(key - firstKey_)];
  }
  void StartCommands(Clock::time_point now, bool mayBegin);
  bool StartCommand(Key key, Clock::time_point now);
  bool TakeUnstarted(Clock::time_point now);
  [[nodiscard]] Clock::time_point NextNameTime() const;
  [[nodiscard]] bool IsBusy(Clock::time_point now) const;
  [[nodiscard]] bool CanBegin() const;
  void BeginAddress();
  void Enqueue(Key key);

  std::size_t jobs_;
  Programs programs_;
  const Neighbourhood& neighbourhood_;
  CommandSet& commands_;
  AddressWalk walk_;

  std::deque<Lookup> lookups_;  // begun and not given out
  Key firstKey_ = 0;            // of the first of them
  std::size_t inWork_ = 0;      // those that are not done
  std::uint64_t doneCount_ = 0;
  TroubleCounts troubles_;

  // The addresses that wait for a command, by its kind. Those for the ARP cache are in the order of
  // the times until which they can wait.
  std::deque<Key> toProbe_;
  std::deque<Key> toName_;
  std::multimap<Clock::time_point, Key> toLookUp_;
  std::vector<Key> unstarted_;  // those whose command could not be started

  std::deque<Key> namesRunning_;  // in the order of their start
  std::size_t commandLimit_;      // lowered while the system lacks processes or descriptors
};

}  // namespace hostsweep
