#include "platform/events.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "platform/pipe.h"
#include "platform/system_call.h"

namespace hostsweep {

bool WaitForEvents(CommandSet& commands, const CaughtSignals& signals, OutputState output,
                   std::optional<std::chrono::milliseconds> time) {
  const short wanted = output == OutputState::Wanted ? POLLOUT : 0;
  std::vector<pollfd> descriptors = {{signals.Reader().Number(), POLLIN, 0},
                                     {STDOUT_FILENO, wanted, 0}};
  commands.Watch(descriptors);
  const auto limit = static_cast<int>(
      std::min<std::chrono::milliseconds::rep>(time ? time->count() : -1, INT_MAX));
  const int ready = RetryInterrupted(
      [&] { return poll(descriptors.data(), static_cast<nfds_t>(descriptors.size()), limit); });
  if (ready < 0) ThrowSystemError("poll");
  std::string ignored;
  if (descriptors[0].revents != 0) ReadOnce(signals.Reader(), ignored);
  commands.Read(descriptors);
  return (descriptors[1].revents & (POLLERR | POLLHUP)) == 0;
}

}  // namespace hostsweep
