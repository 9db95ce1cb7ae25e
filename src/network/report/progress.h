// The progress line of a sweep on standard error.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/line_eraser.h"

namespace hostsweep {

// The line that says how many of `total` are done after that time, with a bar and the time left as
// their share suggests. At most `columns` wide: parts that do not fit are left out.
std::string FormatProgress(std::uint64_t done, std::uint64_t total,
                           std::chrono::milliseconds elapsed, int columns);

// Draws the line in place on a terminal. Draws nothing if it is not enabled, while the terminal is
// stopped (a write would wait, and signals with it), and in the background of the terminal.
class Progress {
 public:
  Progress(bool isEnabled, std::uint64_t total);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { Erase(); }

  // Draws the line, if the last time was a tenth of a second ago or earlier.
  void Show(std::uint64_t done, Clock::time_point now);

  // Erases the line, so that something else can be written in its place, unless the terminal is
  // stopped.
  void Erase();

  // The time at which the next line may be drawn.
  [[nodiscard]] Clock::time_point NextTime() const { return nextTime_; }
  [[nodiscard]] bool IsEnabled() const { return isEnabled_; }

 private:
  void Draw(const std::string& line) const;

  void SetWidth(std::size_t width);

  bool isEnabled_;
  std::uint64_t total_;
  std::optional<LineEraser> eraser_;  // only where there is a line to erase
  Clock::time_point begin_ = Clock::now();
  Clock::time_point nextTime_ = begin_;
  std::size_t width_ = 0;  // of the line that is drawn
};

}  // namespace hostsweep
