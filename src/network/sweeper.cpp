#include "network/sweeper.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <system_error>
#include <utility>

#include "platform/devices.h"
#include "platform/exit_status.h"

namespace hostsweep {
namespace {

// While no name server answers, all that are started run, and each host(1) takes two megabytes.
constexpr std::size_t MaximalNamesRunning = 128;

// A name takes 10 ms of processor time. One that runs for longer than this waits for its server,
// and leaves the processors to others; of those that do not, more at a time would only delay each
// other and the probes.
constexpr std::chrono::milliseconds BusyTime(100);
constexpr std::size_t MaximalBusyNames = 8;

// Findings wait for those before them; a single address can take long.
constexpr std::size_t MaximalLookups = 4096;

// Statuses that a lack of processes gives: ping cannot run the ping behind it, host(1) aborts
// without a thread, and the shell cannot fork (dash(1) and bash(1)).
bool TellsLack(const CommandSet::Result& result) {
  constexpr std::array<int, 4> Statuses = {ExitCannotRun, ExitSignal + SIGABRT, 2, 254};
  return std::find(Statuses.begin(), Statuses.end(), result.Status) != Statuses.end();
}

bool CanReach(std::uint32_t address) {
  try {
    return HasRoute(address);
  } catch (const std::system_error&) {
    return true;  // not known, for lack of descriptors; ping will tell
  }
}

}  // namespace

Sweeper::Sweeper(const std::vector<Network>& networks, std::size_t jobs, Programs programs,
                 const Neighbourhood& neighbourhood, CommandSet& commands)
    : jobs_(jobs),
      programs_(programs),
      neighbourhood_(neighbourhood),
      commands_(commands),
      walk_(networks),
      commandLimit_(jobs) {}

void Sweeper::Start(Clock::time_point now, bool mayBegin) {
  do {
    StartCommands(now, mayBegin);
  } while (TakeUnstarted(now));
}

void Sweeper::StartCommands(Clock::time_point now, bool mayBegin) {
  while (!toLookUp_.empty() && toLookUp_.begin()->first <= now) {
    if (!StartCommand(toLookUp_.begin()->second, now)) return;
    toLookUp_.erase(toLookUp_.begin());
  }
  for (;;) {
    while (!toProbe_.empty()) {
      if (!StartCommand(toProbe_.front(), now)) return;
      toProbe_.pop_front();
    }
    if (!mayBegin || !CanBegin()) break;
    BeginAddress();
  }
  while (!toName_.empty() && NextNameTime() <= now) {
    if (!StartCommand(toName_.front(), now)) return;
    namesRunning_.push_back(toName_.front());
    toName_.pop_front();
  }
  if (IsBusy(now)) return;
  for (auto next = toLookUp_.begin(); next != toLookUp_.end();) {
    if (At(next->second).NotBefore() > now) {
      ++next;
      continue;
    }
    if (!StartCommand(next->second, now)) return;
    next = toLookUp_.erase(next);
  }
}

// True if there is another address, and room for it.
bool Sweeper::CanBegin() const {
  return inWork_ < jobs_ && lookups_.size() < MaximalLookups && !walk_.IsAtEnd();
}

// The time at which another name may be looked up, unless one of those that run ends before.
Clock::time_point Sweeper::NextNameTime() const {
  const std::size_t count = namesRunning_.size();
  if (count >= MaximalNamesRunning) return Clock::time_point::max();
  if (count < MaximalBusyNames) return {};
  return At(namesRunning_[count - MaximalBusyNames]).BeginTime() + BusyTime;
}

// True if names are being looked up that do not wait for their servers.
bool Sweeper::IsBusy(Clock::time_point now) const {
  return !toName_.empty() ||
         (!namesRunning_.empty() && At(namesRunning_.back()).BeginTime() + BusyTime > now);
}

// Starts the command of the current step. Returns false if it has to wait for another to end.
bool Sweeper::StartCommand(Key key, Clock::time_point now) {
  if (commands_.Count() >= commandLimit_) return false;
  Lookup& lookup = At(key);
  const bool isProbe = lookup.Current() == Lookup::Step::Probe;
  lookup.Begin(now);
  try {
    commands_.Start(key, lookup.Command(),
                    isProbe ? CommandSet::Output::Discard : CommandSet::Output::Collect);
  } catch (const std::system_error&) {
    if (commands_.Count() > 0) {
      commandLimit_ = commands_.Count();
      return false;
    }
    unstarted_.push_back(key);
  }
  return true;
}

// Ends the steps whose commands could not be started. Returns false if there are none.
bool Sweeper::TakeUnstarted(Clock::time_point now) {
  const std::vector<Key> keys = std::exchange(unstarted_, {});
  for (const Key key : keys) Take({key, "", ExitCannotRun}, now);
  return !keys.empty();
}

void Sweeper::Take(const CommandSet::Result& result, Clock::time_point now) {
  Lookup& lookup = At(result.Key);
  if (lookup.Current() == Lookup::Step::Name) std::erase(namesRunning_, result.Key);
  if (TellsLack(result) && commands_.Count() > 0) {
    commandLimit_ = std::max<std::size_t>(commands_.Count() / 2, 1);
  } else {
    commandLimit_ = std::min(commandLimit_ + 1, jobs_);
    lookup.Take(result, now);
  }
  Enqueue(result.Key);
}

void Sweeper::BeginAddress() {
  const std::uint32_t address = *walk_.Next();
  lookups_.emplace_back(address, programs_, neighbourhood_.PlaceOf(address));
  ++inWork_;
  if (!CanReach(address)) lookups_.back().Skip(Trouble::NoRoute);
  Enqueue(firstKey_ + lookups_.size() - 1);
}

// Puts the address where its next command waits.
void Sweeper::Enqueue(Key key) {
  const Lookup& lookup = At(key);
  switch (lookup.Current()) {
    case Lookup::Step::Probe:
      toProbe_.push_back(key);
      break;
    case Lookup::Step::Name:
      toName_.push_back(key);
      break;
    case Lookup::Step::HardwareAddress:
      toLookUp_.emplace(lookup.CanWaitUntil(), key);
      break;
    case Lookup::Step::Done:
      --inWork_;
      ++doneCount_;
      troubles_.Add(lookup.Troubles(), lookup.Address());
      break;
  }
}

std::optional<Finding> Sweeper::Next() {
  while (!lookups_.empty() && lookups_.front().Current() == Lookup::Step::Done) {
    const Lookup lookup = std::move(lookups_.front());
    lookups_.pop_front();
    ++firstKey_;
    if (!lookup.IsSkipped()) return lookup.Result();
  }
  return {};
}

std::optional<Clock::time_point> Sweeper::WakeTime(bool mayBegin) const {
  if (commands_.Count() >= commandLimit_) return {};
  // Findings that have been given out since `Start` can have made room.
  if (mayBegin && CanBegin()) return Clock::time_point();
  Clock::time_point time = Clock::time_point::max();
  if (!toLookUp_.empty()) time = toLookUp_.begin()->first;
  if (!toName_.empty()) time = std::min(time, NextNameTime());
  if (time == Clock::time_point::max()) return {};
  return time;
}

}  // namespace hostsweep
