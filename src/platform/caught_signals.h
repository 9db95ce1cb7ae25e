// Signals as events that the program waits for beside others, instead of being interrupted by them.
#pragma once

#include <vector>

#include "platform/pipe.h"

namespace hostsweep {

// Catches these signals until it is destroyed, which gives them their default action. One that the
// caller of the program ignores stays ignored, but for SIGCHLD: how a child ended could not be told
// then. A child that stops or continues gives no SIGCHLD. At most one object may exist at a time.
class CaughtSignals {
 public:
  // Throws `std::system_error` if the system has no pipe to give.
  explicit CaughtSignals(const std::vector<int>& numbers);
  CaughtSignals(const CaughtSignals&) = delete;
  CaughtSignals& operator=(const CaughtSignals&) = delete;
  ~CaughtSignals();

  // Can be read after a signal has arrived. The data say nothing; `Take` tells the signals apart.
  [[nodiscard]] const Descriptor& Reader() const { return pipe_.Reader; }

  // True if the signal has arrived since it was last taken.
  static bool Take(int number);

 private:
  Pipe pipe_;
  std::vector<int> caught_;
};

}  // namespace hostsweep
