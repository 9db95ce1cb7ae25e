// Erases a progress line from standard error before a signal ends the program.
#pragma once

#include <cstddef>

namespace hostsweep {

// While the object exists, SIGHUP, SIGINT, SIGQUIT and SIGTERM, unless they are ignored, erase the
// line before they end the program. At most one object may exist at a time.
class LineEraser {
 public:
  LineEraser();
  LineEraser(const LineEraser&) = delete;
  LineEraser& operator=(const LineEraser&) = delete;
  ~LineEraser();

  // Sets how many columns the line takes: 0 if there is no line now.
  static void SetWidth(std::size_t width);
};

}  // namespace hostsweep
