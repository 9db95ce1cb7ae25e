#include "platform/events.h"

#include <poll.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "platform/pipe.h"
#include "platform/system_call.h"
#include "platform/terminal.h"

namespace hostsweep {

using std::chrono::milliseconds;

bool WaitForEvents(CommandSet& commands, const CaughtSignals& signals, OutputState output,
                   std::optional<milliseconds> time) {
  // Only a pipe can lose its reader, and macOS's poll(2) knows no terminals: one that is full is
  // looked at again later.
  constexpr milliseconds TerminalInterval(20);
  static const bool isPipe = KindOf(StandardOutput) == FileKind::Pipe;
  const bool isWanted = output == OutputState::Wanted;
  if (isWanted && !isPipe) time = std::min(time.value_or(TerminalInterval), TerminalInterval);
  const short wanted = isWanted ? POLLOUT : 0;
  std::vector<pollfd> descriptors = {{signals.Reader().Number(), POLLIN, 0},
                                     {isPipe ? StandardOutput : -1, wanted, 0}};
  commands.Watch(descriptors);
  const auto limit =
      static_cast<int>(std::min<milliseconds::rep>(time ? time->count() : -1, INT_MAX));
  const int ready = RetryInterrupted(
      [&] { return poll(descriptors.data(), static_cast<nfds_t>(descriptors.size()), limit); });
  if (ready < 0) ThrowSystemError("poll");
  std::string ignored;
  if (descriptors[0].revents != 0) ReadOnce(signals.Reader(), ignored);
  commands.Read(descriptors);
  return (descriptors[1].revents & (POLLERR | POLLHUP)) == 0;
}

}  // namespace hostsweep
