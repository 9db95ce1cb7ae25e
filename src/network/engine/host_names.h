// The names that hosts say of themselves, by multicast DNS and NetBIOS.
#pragma once

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

// Nothing here waits: `Watch` and `NextTime` say for what to wait, before the next `Proceed`.
//
// A host has half a second to answer, and up to two as long as the sweep has to wait for something
// else; after one second it is asked once more. Silence means nothing.
class HostNames {
 public:
  HostNames();

  // Has the host asked for its name: by multicast DNS, if `device` is not 0, and by NetBIOS.
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
  using Turn = std::pair<Clock::time_point, std::uint32_t>;  // since when, and an address

  bool Open();
  void AskNow(std::uint32_t address, int device, Clock::time_point now);
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
  // Multicast DNS asks from its own port, as some hosts answer nobody else, and from another port,
  // too: an answer to that comes to it alone, also from hosts that have just told everybody
  // (RFC 6762, sections 6 and 6.7).
  std::optional<DatagramSocket> ownPort_;  // nothing if it cannot be had
  std::optional<DatagramSocket> anyPort_;  // nothing before the first question
  MulticastDns multicastDns_;
  std::optional<MulticastDns::Query> query_;  // taken, and not sent yet
  std::map<int, Clock::time_point> browses_;  // the last on each device that is joined
  std::deque<std::uint32_t> requests_;        // NetBIOS: the addresses to send one to
  std::optional<Clock::time_point> nextSend_;
  std::map<std::uint32_t, Asked> asked_;  // by address
  std::deque<Turn> ends_;                 // those of them that wait, in the order of asking
  std::deque<Turn> repeats_;              // those that have been asked once
  std::vector<NameResult> results_;
};

}  // namespace hostsweep
