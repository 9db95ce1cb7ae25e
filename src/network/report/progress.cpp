#include "network/report/progress.h"

#include <algorithm>

#include "platform/console.h"
#include "platform/terminal.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds Interval(100);

// The time that an address takes if nothing answers ARP.
constexpr milliseconds SilentTime(2200);

std::string FormatTime(milliseconds time) {
  const auto seconds = std::chrono::ceil<std::chrono::seconds>(time).count();
  const std::string rest = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

// The columns that a line may take. The last column stays free: after it, some terminals begin a
// new line.
int Room() {
  constexpr int UsualColumns = 80;
  const int columns = ColumnsOf(StandardError);
  return (columns > 0 ? columns : UsualColumns) - 1;
}

}  // namespace

// At most `jobs_` addresses are swept in one wave. The expected end is the end of silent addresses
// whose current wave has just begun, or the earliest end that was expected before; but each wave
// that has yet to begin takes its time.
std::optional<milliseconds> TimeLeft::At(std::uint64_t done, Clock::time_point now) {
  const auto waves = static_cast<std::int64_t>((total_ - done + jobs_ - 1) / jobs_);
  end_ = std::min(end_, now + SilentTime * waves);
  const auto left = std::max(std::chrono::ceil<milliseconds>(end_ - now), SilentTime * (waves - 1));
  if (left <= milliseconds(0)) return {};
  return left;
}

std::string FormatProgress(std::uint64_t done, std::uint64_t total,
                           std::optional<milliseconds> left, int columns) {
  constexpr std::size_t LongestBar = 40;
  constexpr std::size_t ShortestBar = 5;
  const auto width = static_cast<std::size_t>(std::max(columns, 0));
  const std::string all = std::to_string(total);
  std::string count = std::to_string(done);
  count.insert(0, all.size() - std::min(count.size(), all.size()), ' ');
  count += '/' + all;
  const std::string time = left ? ' ' + FormatTime(*left) + " left" : "";
  if (count.size() > width) return {};
  if (count.size() + time.size() > width) return count;
  constexpr std::size_t Frame = 3;  // a space and two brackets
  const std::size_t room = width - count.size() - time.size();
  if (room < Frame + ShortestBar) return count + time;
  const std::size_t bar = std::min(room - Frame, LongestBar);
  const auto filled = static_cast<std::size_t>(done * bar / total);
  return count + " [" + std::string(filled, '#') + std::string(bar - filled, ' ') + "]" + time;
}

Progress::Progress(bool isEnabled, std::uint64_t total, std::uint32_t jobs)
    : isEnabled_(isEnabled), total_(total), left_(total, jobs) {
  if (isEnabled) eraser_.emplace();
}

void Progress::Show(std::uint64_t done, Clock::time_point now) {
  if (!isEnabled_ || now < nextTime_) return;
  nextTime_ = now + Interval;
  if (!CanWrite(StandardError) || !IsForeground(StandardError)) return;
  const std::string line = FormatProgress(done, total_, left_.At(done, now), Room());
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

// Draws the line over the last line, or, on a terminal that has become narrower, over what is left
// of the last line.
void Progress::Draw(const std::string& line) const {
  const std::size_t room = std::min(width_, static_cast<std::size_t>(std::max(Room(), 0)));
  const std::size_t rest = room > line.size() ? room - line.size() : 0;
  PrintError('\r' + line + std::string(rest, ' ') + '\r');
}

}  // namespace hostsweep
