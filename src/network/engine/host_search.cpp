#include "network/engine/host_search.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;

// The kernel asks three times, a second apart (arp(7)). A host has this long for its answer to the
// last request.
constexpr int Requests = 3;
constexpr milliseconds AnswerTime(150);

// The earliest time of the last request, and the time after which it has been made, where the
// system does not count requests.
constexpr milliseconds LastRequestTime(1950);
constexpr milliseconds UncountedRequests(2050);

// How often a silent host is probed where ARP does not tell.
constexpr int Probes = 3;
constexpr milliseconds ProbeInterval(700);
constexpr milliseconds LastProbeTime(800);

// The longest time that the kernel takes after a probe: it waits five seconds before it asks at an
// old hardware address, and then asks three times (arp(7)).
constexpr milliseconds LongestVerdict(9000);

// An entry can be thrown away and made anew while the table is being listed.
constexpr int Misses = 3;

// More probes are only needed where another program changes the table all the time.
constexpr int MostProbes = 8;

// How late the times of entries can be: their ages are in hundredths of a second, and reading the
// table takes time.
constexpr milliseconds Tolerance(20);

bool IsFixed(NeighbourState state) {
  return state == NeighbourState::Permanent || state == NeighbourState::NoArp;
}

}  // namespace

void HostSearch::Handle(const SearchEvent& event, Clock::time_point now) {
  if (state_ == State::Up) return;
  if (event.What == SearchEvent::Kind::Changed) {
    if (hasChanged_) return EndInDoubt(Doubt::Changed);
    return Begin(event.How);
  }
  if (IsDone()) return;
  switch (event.What) {
    case SearchEvent::Kind::Sent:
      state_ = hearing_ == Hearing::Arp ? State::Probed : State::Listening;
      probe_ = now;
      ++probes_;
      misses_ = 0;
      break;
    case SearchEvent::Kind::Answered:
      isHeard_ = true;
      // With ARP, the next look finds the hardware address, too.
      if (hearing_ == Hearing::Answer) state_ = State::Up;
      break;
    case SearchEvent::Kind::Seen:
      if (state_ != State::ToProbe) Look(event.Entry, now);
      break;
    default:
      EndInDoubt(event.Reason);
      break;
  }
}

void HostSearch::Look(const Neighbour* entry, Clock::time_point now) {
  See(entry, now);
  // What the table says comes first, since the program may have been stopped for long.
  const bool isPending = !IsDone() && state_ != State::ToProbe;
  if (isPending && now - probe_ > LongestVerdict) EndInDoubt(Doubt::TooLong);
}

void HostSearch::See(const Neighbour* entry, Clock::time_point now) {
  if (hearing_ == Hearing::Answer) return Listen(entry, now);
  if (entry == nullptr) return SeeNothing(now);
  if (IsFixed(entry->State)) return Listen(nullptr, now);
  switch (entry->State) {
    case NeighbourState::Reachable:
      state_ = State::Up;
      break;
    case NeighbourState::Incomplete:
      SeeIncomplete(*entry, now);
      break;
    case NeighbourState::Failed:
      SeeFailed(*entry, now);
      break;
    case NeighbourState::None:
      SeeNothing(now);
      break;
    default:
      SeeUnconfirmed(*entry, now);
      break;
  }
}

// Only requests since the probe count.
void HostSearch::SeeIncomplete(const Neighbour& entry, Clock::time_point now) {
  misses_ = 0;
  if (!IsSinceProbe(entry.Since)) {
    state_ = State::AskingSince;
  } else if (state_ == State::AskingLast) {
    if (now - lastRequest_ >= AnswerTime) EndSilence();
  } else {
    const bool isLast =
        entry.Requests ? *entry.Requests >= Requests : now - probe_ >= UncountedRequests;
    state_ = isLast ? State::AskingLast : State::Asking;
    if (isLast) lastRequest_ = now;
  }
}

// A failure means that there is no host only if all requests were made since the probe.
void HostSearch::SeeFailed(const Neighbour& entry, Clock::time_point now) {
  if (!IsSinceProbe(entry.Since)) return SeeNothing(now);
  const bool isIdle = wasIdle_ && state_ == State::Probed;
  if (isIdle || state_ == State::Asking || state_ == State::AskingLast) {
    EndSilence();
  } else {
    ProbeAnew();
  }
}

// An entry has a hardware address that the kernel has not confirmed. If it had no hardware address
// at some time since the probe, the host has just given it.
void HostSearch::SeeUnconfirmed(const Neighbour& entry, Clock::time_point now) {
  if (isHeard_ || IsAsking() || IsSinceProbe(entry.Confirmed)) {
    state_ = State::Up;
  } else if (entry.State == NeighbourState::Stale) {
    SeeNothing(now);  // a datagram would have begun its confirmation
  } else {
    misses_ = 0;
    state_ = State::Verifying;
  }
}

void HostSearch::SeeNothing(Clock::time_point now) {
  if (state_ == State::AskingLast) {  // a failed entry can be thrown away at once
    if (now - lastRequest_ >= AnswerTime) EndSilence();
    return;
  }
  if (++misses_ < Misses) return;
  if (isHeard_) {
    state_ = State::Up;
  } else if (wasMissed_) {
    EndInDoubt(Doubt::NotAsked);
  } else {
    wasMissed_ = true;
    ProbeAnew();
  }
}

void HostSearch::Listen(const Neighbour* gateway, Clock::time_point now) {
  state_ = State::Listening;
  if (isHeard_) {
    state_ = State::Up;
    return;
  }
  if (probes_ < Probes) {
    if (now - probe_ >= ProbeInterval) ProbeAnew();
    return;
  }
  if (now - probe_ < LastProbeTime) return;
  const NeighbourState state = gateway == nullptr ? NeighbourState::NoArp : gateway->State;
  if (state == NeighbourState::Incomplete || state == NeighbourState::Failed) {
    EndInDoubt(Doubt::GatewaySilent);
  } else if (state != NeighbourState::Delay && state != NeighbourState::Probe) {
    EndInDoubt(Doubt::None);
  }
}

// Nothing has answered ARP. The host may still have answered the probe, if its entry has been
// thrown away since.
void HostSearch::EndSilence() { state_ = isHeard_ ? State::Up : State::Absent; }

void HostSearch::ProbeAnew() {
  if (probes_ == MostProbes) return EndInDoubt(Doubt::TooLong);
  state_ = State::ToProbe;
  wasIdle_ = true;
}

void HostSearch::Begin(Hearing hearing) {
  *this = HostSearch(hearing);
  hasChanged_ = true;
}

void HostSearch::EndInDoubt(Doubt reason) {
  state_ = State::Unknown;
  reason_ = reason;
}

bool HostSearch::IsUrgent(Clock::time_point now) const {
  return state_ == State::Probed || state_ == State::AskingLast ||
         (state_ == State::Asking && now - probe_ >= LastRequestTime);
}

bool HostSearch::IsAsking() const {
  return state_ == State::Asking || state_ == State::AskingLast || state_ == State::AskingSince;
}

bool HostSearch::IsSinceProbe(Clock::time_point time) const { return time + Tolerance >= probe_; }

}  // namespace hostsweep
