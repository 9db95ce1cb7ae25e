// A signal as an event that the program waits for beside others, instead of being interrupted by
// it.
#pragma once

#include "platform/pipe.h"

namespace hostsweep {

// Catches the signal, even if it was ignored, until it is destroyed, which gives it its default
// action. A child that stops or continues gives no SIGCHLD. At most one object may exist at a time.
class CaughtSignal {
 public:
  // Throws `std::system_error` if the system has no pipe to give.
  explicit CaughtSignal(int number);
  CaughtSignal(const CaughtSignal&) = delete;
  CaughtSignal& operator=(const CaughtSignal&) = delete;
  ~CaughtSignal();

  // Can be read after the signal has arrived. The data say nothing.
  [[nodiscard]] const Descriptor& Reader() const { return pipe_.Reader; }

 private:
  Pipe pipe_;
  int number_;
};

}  // namespace hostsweep
