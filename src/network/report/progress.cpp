#include "network/report/progress.h"

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
  if (done * 10 < total || done == 0) return {};  // too little to tell from
  const auto left =
      static_cast<std::int64_t>(total - done) * elapsed.count() / static_cast<std::int64_t>(done);
  return ' ' + FormatTime(std::chrono::milliseconds(left)) + " left";
}

// The columns that a line may take. The last one stays free: some terminals begin a new line after
// it.
int Room() {
  constexpr int UsualColumns = 80;
  const int columns = ColumnsOf(StandardError);
  return (columns > 0 ? columns : UsualColumns) - 1;
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

Progress::Progress(bool isEnabled, std::uint64_t total) : isEnabled_(isEnabled), total_(total) {
  if (isEnabled) eraser_.emplace();
}

void Progress::Show(std::uint64_t done, Clock::time_point now) {
  if (!isEnabled_ || now < nextTime_) return;
  nextTime_ = now + Interval;
  if (!CanWrite(StandardError) || !IsForeground(StandardError)) return;
  const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - begin_);
  const std::string line = FormatProgress(done, total_, elapsed, Room());
  LineEraser::SetWidth(std::max(width_, line.size()));
  Draw(line);
  SetWidth(line.size());
}

void Progress::Erase() {
  if (!CanWrite(StandardError)) return;
  if (width_ > 0) Draw("");
  SetWidth(0);
}

void Progress::SetWidth(std::size_t width) {
  width_ = width;
  LineEraser::SetWidth(width);
}

// Draws the line over the last one; on a terminal that has become narrower, over what is left of
// it.
void Progress::Draw(const std::string& line) const {
  const std::size_t room = std::min(width_, static_cast<std::size_t>(std::max(Room(), 0)));
  const std::size_t rest = room > line.size() ? room - line.size() : 0;
  PrintError('\r' + line + std::string(rest, ' ') + '\r');
}

}  // namespace hostsweep
