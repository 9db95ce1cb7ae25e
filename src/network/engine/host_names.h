// The names that hosts give themselves, by multicast DNS and NetBIOS.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "network/engine/multicast_dns.h"
#include "network/engine/name_result.h"
#include "platform/clock.h"
#include "platform/network/datagram_socket.h"
#include "platform/poll.h"

namespace hostsweep {

// Nothing here waits: `Watch` and `NextTime` say what to wait for, before the next `Proceed`.
//
// A host has half a second to answer, and up to two seconds while the sweep has to wait for
// something else; after one second it is asked once more. Silence means nothing.
class HostNames {
 public:
  HostNames();

  // Asks the host for its name: by multicast DNS on `device`, unless that is 0, and by NetBIOS.
  void Ask(std::uint64_t key, std::uint32_t address, int device, Clock::time_point now);

  // The number of hosts that have been asked and have no result yet.
  [[nodiscard]] std::size_t Count() const { return asked_.size(); }

  // Does what can be done now. `isWaiting`: the sweep has to wait for something else.
  void Proceed(Clock::time_point now, bool isWaiting);

  // The results that have come since the last call.
  std::vector<NameResult> TakeResults() { return std::exchange(results_, {}); }

  // Appends the descriptors to wait for.
  void Watch(std::vector<Watched>& descriptors) const;

  // The time at which `Proceed` has something to do even if nothing is ready; nothing if there is
  // no such time.
  [[nodiscard]] std::optional<Clock::time_point> NextTime(bool isWaiting) const;

 private:
  struct Asked {
    std::uint64_t Key;
    int Device;
    std::optional<std::string> NetBiosName;
  };
  struct Browse {
    Clock::time_point Last;
    std::chrono::milliseconds Interval;  // to the next at the earliest
  };
  using Turn = std::pair<Clock::time_point, std::uint32_t>;  // since when, and an address

  bool Open();
  void AskNow(std::uint32_t address, int device, Clock::time_point now);
  void BrowseOn(int device, Clock::time_point now);
  void Receive();
  void ReceiveMulticastDns(const Datagram& datagram);
  void ReceiveNetBios(const Datagram& datagram);
  void AskAgain(Clock::time_point now);
  void Send(Clock::time_point now);
  bool SendQueries();
  bool SendRequests();
  void EndIfSure(std::uint32_t address);
  void End(std::uint32_t address);

  std::uint16_t identifier_;  // of NetBIOS requests
  // Multicast DNS is asked from its own port, since some hosts answer no other, and from another
  // port, too: hosts answer that port directly, even if they have just answered the group (RFC
  // 6762, sections 6 and 6.7).
  std::optional<DatagramSocket> ownPort_;  // nothing if the port cannot be shared
  std::optional<DatagramSocket> anyPort_;  // nothing before the first question
  MulticastDns multicastDns_;
  std::optional<MulticastDns::Query> query_;  // taken, and not sent yet
  std::map<int, Browse> browses_;             // on each device that is joined
  std::deque<std::uint32_t> requests_;        // NetBIOS: the addresses to send a request to
  std::optional<Clock::time_point> nextSend_;
  std::map<std::uint32_t, Asked> asked_;  // by address
  std::deque<Turn> ends_;                 // hosts that have been asked, in that order
  std::deque<Turn> repeats_;              // hosts that have been asked only once, in that order
  std::vector<NameResult> results_;
};

}  // namespace hostsweep
