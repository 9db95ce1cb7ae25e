#include "platform/network/neighbour_linux.h"

#include <arpa/inet.h>
#include <linux/neighbour.h>
#include <sys/socket.h>

#include <chrono>

#include "platform/network/netlink_linux.h"

namespace hostsweep {
namespace {

NeighbourState StateOf(unsigned int state) {
  switch (state) {
    case NUD_INCOMPLETE:
      return NeighbourState::Incomplete;
    case NUD_REACHABLE:
      return NeighbourState::Reachable;
    case NUD_STALE:
      return NeighbourState::Stale;
    case NUD_DELAY:
      return NeighbourState::Delay;
    case NUD_PROBE:
      return NeighbourState::Probe;
    case NUD_FAILED:
      return NeighbourState::Failed;
    case NUD_NOARP:
      return NeighbourState::NoArp;
    case NUD_PERMANENT:
      return NeighbourState::Permanent;
    default:
      return NeighbourState::None;
  }
}

// The kernel gives ages in hundredths of a second, USER_HZ.
Clock::duration Age(std::uint32_t hundredths) {
  return std::chrono::milliseconds(std::int64_t{10} * hundredths);
}

}  // namespace

std::optional<Neighbour> ParseNeighbour(std::string_view body, Clock::time_point now) {
  const auto message = MessageIn<ndmsg>(body);
  if (!message) return {};
  const auto address = message->Number(NDA_DST);
  if (message->Fixed.ndm_family != AF_INET || !address) return {};
  Neighbour entry;
  entry.Device = message->Fixed.ndm_ifindex;
  entry.Address = ntohl(*address);
  entry.State = StateOf(message->Fixed.ndm_state);
  entry.HardwareAddress = message->Value(NDA_LLADDR);
  if (const auto ages = ObjectIn<nda_cacheinfo>(message->Value(NDA_CACHEINFO))) {
    entry.Since = now - Age(ages->ndm_updated);
    entry.Confirmed = now - Age(ages->ndm_confirmed);
  }
  if (const auto probes = message->Number(NDA_PROBES)) entry.Requests = static_cast<int>(*probes);
  return entry;
}

}  // namespace hostsweep
