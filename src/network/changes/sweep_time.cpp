#include "network/changes/sweep_time.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <ctime>

namespace hostsweep {
namespace {

// The number that the `size` digits at `begin` are; -1 if any character is not a digit.
int NumberAt(std::string_view text, std::size_t begin, std::size_t size) {
  int number = 0;
  for (const char digit : text.substr(begin, size)) {
    if (digit < '0' || digit > '9') return -1;
    number = number * 10 + (digit - '0');
  }
  return number;
}

}  // namespace

std::string FormatTime(SweepTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const auto seconds = static_cast<int>((time - day).count());
  std::array<char, 64> text = {};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), seconds / 3600, seconds / 60 % 60, seconds % 60);
  return text.data();
}

std::optional<SweepTime> ParseTime(std::string_view text) {
  constexpr std::string_view Form = "0000-00-00T00:00:00Z";
  if (text.size() != Form.size()) return {};
  const std::chrono::year_month_day date(
      std::chrono::year(NumberAt(text, 0, 4)),
      std::chrono::month(static_cast<unsigned>(NumberAt(text, 5, 2))),
      std::chrono::day(static_cast<unsigned>(NumberAt(text, 8, 2))));
  constexpr std::chrono::year First(1970);
  if (!date.ok() || date.year() < First) return {};
  const std::chrono::hours hours(NumberAt(text, 11, 2));
  const std::chrono::minutes minutes(NumberAt(text, 14, 2));
  const std::chrono::seconds seconds(NumberAt(text, 17, 2));
  const SweepTime time = std::chrono::sys_days(date) + hours + minutes + seconds;
  // Any other text of the same time has a number out of range or a wrong separator.
  return FormatTime(time) == text ? std::optional(time) : std::nullopt;
}

std::string FormatLocalTime(SweepTime time) {
  const std::time_t number = std::chrono::system_clock::to_time_t(time);
  const std::tm* const local = std::localtime(&number);
  std::array<char, 64> text = {};
  if (local == nullptr || std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", local) == 0) {
    return FormatTime(time);
  }
  return text.data();
}

}  // namespace hostsweep
