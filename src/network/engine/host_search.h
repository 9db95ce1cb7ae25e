// The search for a host at one address, without clock, socket or kernel: what has happened goes in,
// and what to do and what is known come out.
#pragma once

#include <chrono>
#include <optional>

#include "platform/clock.h"
#include "platform/network/neighbour.h"

namespace hostsweep {

// How a host at the address can be heard: by ARP and by its answer to the probe, or, as beyond a
// router, only by its answer.
enum class Hearing { Arp, Answer };

// The reason why a search ends without a result.
enum class Doubt {
  None,           // no reason: only an answer could tell, and no answer came
  NotAsked,       // the kernel has not asked for the address, although the probe was sent
  TooLong,        // the kernel is still asking
  GatewaySilent,  // the gateway does not answer ARP
  Changed,        // the network has changed, twice
  Forbidden,      // a firewall forbids the probe
  TableFull,      // the kernel's table of neighbours has been full for too long
  Unreachable     // there is no way to the address any more
};

// Something that happens to a search.
struct SearchEvent {
  enum class Kind {
    Sent,      // the probe has been sent
    Answered,  // the host itself has answered a probe
    Seen,      // the kernel's table has been read
    Changed,   // the network has changed since the probe
    Failed     // the probe could not be sent, or this machine has reported an error
  };
  Kind What = Kind::Seen;
  const Neighbour* Entry =
      nullptr;  // `Seen`: of the address, or of its gateway; null if there is no entry
  Doubt Reason = Doubt::None;  // `Failed`: the reason
  Hearing How = Hearing::Arp;  // `Changed`: how a host can be heard now
};

class HostSearch {
 public:
  enum class State {
    ToProbe,      // a probe is to be sent
    Probed,       // it has been sent, and nothing is known yet
    Asking,       // the kernel asks by broadcast; it began after the probe
    AskingLast,   // the third request is out
    AskingSince,  // the kernel asks by broadcast; it began before the probe
    Verifying,    // the kernel has a hardware address, which it has yet to confirm
    Listening,    // waiting for an answer, which alone can tell
    Up,           // a host has been heard
    Absent,       // no host has answered ARP; `Changed` can still follow
    Unknown       // `Reason` says why; after `Doubt::None`, `Changed` can still follow
  };

  explicit HostSearch(Hearing hearing) : hearing_(hearing) {}

  // Takes the event, which happened at this time, and goes to the next state.
  void Handle(const SearchEvent& event, Clock::time_point now);

  [[nodiscard]] State Current() const { return state_; }
  [[nodiscard]] Doubt Reason() const { return reason_; }
  [[nodiscard]] bool IsDone() const { return state_ >= State::Up; }

  // True if the kernel's table is expected to tell something new soon.
  [[nodiscard]] bool IsUrgent(Clock::time_point now) const;

 private:
  void Look(const Neighbour* entry, Clock::time_point now);
  void See(const Neighbour* entry, Clock::time_point now);
  void SeeIncomplete(const Neighbour& entry, Clock::time_point now);
  void SeeFailed(const Neighbour& entry, Clock::time_point now);
  void SeeUnconfirmed(const Neighbour& entry, Clock::time_point now);
  void SeeNothing(Clock::time_point now);
  void Listen(const Neighbour* gateway, Clock::time_point now);
  void EndSilence();
  void ProbeAnew();
  void Begin(Hearing hearing);
  void EndInDoubt(Doubt reason);
  [[nodiscard]] bool IsAsking() const;
  [[nodiscard]] bool IsSinceProbe(Clock::time_point time) const;

  Hearing hearing_;
  State state_ = State::ToProbe;
  Doubt reason_ = Doubt::None;
  Clock::time_point probe_;        // the last probe
  Clock::time_point lastRequest_;  // when the third request was first seen to be out
  int probes_ = 0;
  int misses_ = 0;          // looks in a row that found no entry
  bool isHeard_ = false;    // the host has answered a probe
  bool wasIdle_ = false;    // the kernel was not asking when the probe was sent
  bool wasMissed_ = false;  // probed again because no entry was found
  bool hasChanged_ = false;
};

}  // namespace hostsweep
