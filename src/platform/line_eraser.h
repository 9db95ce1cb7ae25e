// Erases a progress line from standard error before a signal ends the program.
#pragma once

#include <cstddef>

namespace hostsweep {

// As long as the object exists, each signal by which users and terminals terminate a program, if it
// is not ignored, first overwrites the line with spaces. At most one object may exist at a time.
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
