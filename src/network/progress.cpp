#include "network/progress.h"

#include <algorithm>

#include "platform/console.h"
#include "platform/terminal.h"

namespace hostsweep {
namespace {

constexpr std::chrono::milliseconds Interval(100);

std::string FormatTime(std::chrono::milliseconds time) {
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(time).count();
  const std::string rest = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

// The time left as the share of what is done suggests, after a space; empty before anything is.
std::string FormatTimeLeft(std::uint64_t done, std::uint64_t total,
                           std::chrono::milliseconds elapsed) {
  if (done == 0) return {};
  const auto left =
      static_cast<std::int64_t>(total - done) * elapsed.count() / static_cast<std::int64_t>(done);
  return ' ' + FormatTime(std::chrono::milliseconds(left)) + " left";
}

}  // namespace

std::string FormatProgress(std::uint64_t done, std::uint64_t total,
                           std::chrono::milliseconds elapsed, int columns) {
  constexpr std::size_t LongestBar = 40;
  constexpr std::size_t ShortestBar = 5;
  const auto width = static_cast<std::size_t>(std::max(columns, 0));
  const std::string all = std::to_string(total);
  std::string count = std::to_string(done);
  count.insert(0, all.size() - std::min(count.size(), all.size()), ' ');
  count += '/' + all;
  const std::string left = FormatTimeLeft(done, total, elapsed);
  if (count.size() > width) return {};
  if (count.size() + left.size() > width) return count;
  constexpr std::size_t Frame = 3;  // a space and two brackets
  const std::size_t room = width - count.size() - left.size();
  if (room < Frame + ShortestBar) return count + left;
  const std::size_t bar = std::min(room - Frame, LongestBar);
  const auto filled = static_cast<std::size_t>(done * bar / total);
  return count + " [" + std::string(filled, '#') + std::string(bar - filled, ' ') + "]" + left;
}

void Progress::Show(std::uint64_t done, Clock::time_point now) {
  if (!isEnabled_ || now < nextTime_) return;
  nextTime_ = now + Interval;
  if (!CanWrite(StandardError)) return;
  const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - begin_);
  constexpr int UsualColumns = 80;
  const int columns = ColumnsOf(StandardError);
  // The last column stays free: some terminals begin a new line after it.
  const std::string line =
      FormatProgress(done, total_, elapsed, (columns > 0 ? columns : UsualColumns) - 1);
  const std::size_t rest = width_ > line.size() ? width_ - line.size() : 0;
  width_ = line.size();
  PrintError('\r' + line + std::string(rest, ' ') + '\r');
}

void Progress::Erase() {
  if (width_ == 0) return;
  PrintError('\r' + std::string(width_, ' ') + '\r');
  width_ = 0;
}

void Progress::TryErase() {
  if (CanWrite(StandardError)) Erase();
}

}  // namespace hostsweep
