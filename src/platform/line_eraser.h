// A line in place on standard error that goes before a signal ends the program.
#pragma once

#include <cstddef>

namespace hostsweep {

// While it exists, the signals by which users and terminals terminate a program, unless they are
// ignored, first overwrite the line with spaces. At most one object may exist at a time.
class LineEraser {
 public:
  LineEraser();
  LineEraser(const LineEraser&) = delete;
  LineEraser& operator=(const LineEraser&) = delete;
  ~LineEraser();

  // Tells how many columns the line takes; 0 if there is none.
  static void SetWidth(std::size_t width);
};

}  // namespace hostsweep
