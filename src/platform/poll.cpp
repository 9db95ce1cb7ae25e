#include "platform/poll.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <climits>

#include "platform/system_call.h"

namespace hostsweep {

void WaitFor(std::vector<Watched>& descriptors, std::optional<std::chrono::milliseconds> time) {
  std::vector<pollfd> polled;
  for (const Watched& watched : descriptors) {
    const int events = (watched.Reads ? POLLIN : 0) | (watched.Writes ? POLLOUT : 0);
    polled.push_back({watched.Descriptor, static_cast<short>(events), 0});
  }
  const auto limit = static_cast<int>(
      std::min<std::chrono::milliseconds::rep>(time ? time->count() : -1, INT_MAX));
  const int ready = poll(polled.data(), static_cast<nfds_t>(polled.size()), limit);
  if (ready < 0 && errno != EINTR) ThrowSystemError("poll");
  for (std::size_t i = 0; i < descriptors.size(); ++i) {
    const int events = ready > 0 ? polled[i].revents : 0;
    descriptors[i].IsReady = events != 0;
    descriptors[i].IsBroken = (events & (POLLERR | POLLHUP)) != 0;
  }
}

}  // namespace hostsweep
