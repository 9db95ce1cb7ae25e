// The names of addresses, from /etc/hosts, the name servers, and the hosts themselves.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "network/engine/host_names.h"
#include "network/engine/hosts_file.h"
#include "network/engine/name_result.h"
#include "network/engine/name_servers.h"
#include "platform/clock.h"
#include "platform/poll.h"

namespace hostsweep {

// Nothing here waits: `Watch` and `NextTime` say what to wait for, before the next `Proceed`.
class Names {
 public:
  // Reads /etc/hosts. Throws `std::runtime_error` if names cannot be looked up at all.
  Names();

  // Looks the name of the address up in /etc/hosts, and if it is not there, asks the name servers.
  void LookUp(std::uint64_t key, std::uint32_t address);

  // Asks the host at the address for its own name: by multicast DNS on `device`, unless that is 0,
  // and by NetBIOS.
  void AskHost(std::uint64_t key, std::uint32_t address, int device, Clock::time_point now) {
    hosts_.Ask(key, address, device, now);
  }

  // The number of hosts that have been asked and have no result yet.
  [[nodiscard]] std::size_t AskedCount() const { return hosts_.Count(); }

  // Does what can be done now, with the descriptors that are ready. `isWaiting`: the sweep has to
  // wait for more than the hosts that have been asked.
  void Proceed(const std::vector<Watched>& ready, Clock::time_point now, bool isWaiting);

  // The results of `LookUp` and of `AskHost` that have come since the last call.
  std::vector<NameResult> TakeLookUps();
  std::vector<NameResult> TakeHostNames() { return hosts_.TakeResults(); }

  // Appends the descriptors to wait for.
  void Watch(std::vector<Watched>& descriptors) const;

  // The time at which `Proceed` has something to do even if nothing is ready; nothing if there is
  // no such time.
  [[nodiscard]] std::optional<Clock::time_point> NextTime(Clock::time_point now,
                                                          bool isWaiting) const;

 private:
  std::optional<HostsFile> file_;  // nothing if it cannot be read
  NameServers servers_;
  HostNames hosts_;
  std::vector<NameResult> known_;  // from the file
};

}  // namespace hostsweep
