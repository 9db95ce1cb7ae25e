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

// The time that a sweep has left. It never grows.
class TimeLeft {
 public:
  // Of `total` addresses at most `jobs`, more than 0, are swept at a time.
  TimeLeft(std::uint64_t total, std::uint32_t jobs) : total_(total), jobs_(jobs) {}

  // The time left if `done` addresses are done now. Neither argument may be less than before.
  // Nothing if the sweep takes longer than expected, so that the time is not known.
  std::optional<std::chrono::milliseconds> At(std::uint64_t done, Clock::time_point now);

 private:
  std::uint64_t total_;
  std::uint32_t jobs_;
  Clock::time_point end_ = Clock::time_point::max();  // the earliest end that was expected
};

// The line that says how many of `total` addresses are done, with a bar and, if it is known, the
// time left. At most `columns` wide: parts that do not fit are left out.
std::string FormatProgress(std::uint64_t done, std::uint64_t total,
                           std::optional<std::chrono::milliseconds> left, int columns);

// Draws the line in place on a terminal. Draws nothing if it is not enabled, while the terminal is
// stopped (a write would wait, and signals with it), and while the program is in the background.
class Progress {
 public:
  // For a sweep of `total` addresses, at most `jobs` at a time.
  Progress(bool isEnabled, std::uint64_t total, std::uint32_t jobs);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { Erase(); }

  // Draws the line, unless that was done within the last tenth of a second.
  void Show(std::uint64_t done, Clock::time_point now);

  // Erases the line, so that something else can be written in its place, unless the terminal is
  // stopped.
  void Erase();

  // The earliest time at which the next line is drawn.
  [[nodiscard]] Clock::time_point NextTime() const { return nextTime_; }
  [[nodiscard]] bool IsEnabled() const { return isEnabled_; }

 private:
  void Draw(const std::string& line) const;

  void SetWidth(std::size_t width);

  bool isEnabled_;
  std::uint64_t total_;
  std::optional<LineEraser> eraser_;  // only where there is a line to erase
  TimeLeft left_;
  Clock::time_point nextTime_ = Clock::now();
  std::size_t width_ = 0;  // of the line that is on the terminal
};

}  // namespace hostsweep
