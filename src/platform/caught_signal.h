// A signal as an event that the program can wait for, instead of being interrupted by it.
#pragma once

#include "platform/pipe.h"

namespace hostsweep {

// Catches the signal, even if it was ignored, as long as the object exists; afterwards the signal
// has its default action. Children that stop or continue cause no SIGCHLD. At most one object may
// exist at a time.
class CaughtSignal {
 public:
  // Throws `std::system_error` if no pipe can be opened.
  explicit CaughtSignal(int number);
  CaughtSignal(const CaughtSignal&) = delete;
  CaughtSignal& operator=(const CaughtSignal&) = delete;
  ~CaughtSignal();

  // A descriptor that can be read once the signal has arrived. The data have no meaning.
  [[nodiscard]] const Descriptor& Reader() const { return pipe_.Reader; }

 private:
  Pipe pipe_;
  int number_;
};

}  // namespace hostsweep
