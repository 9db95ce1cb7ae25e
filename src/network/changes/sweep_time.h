// The time of a sweep, and its text.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace hostsweep {

// In UTC.
using SweepTime = std::chrono::time_point<std::chrono::system_clock, std::chrono::seconds>;

// Like 2026-11-23T13:05:09Z (RFC 3339), for a time from the year 1970 to 9999.
std::string FormatTime(SweepTime time);

// The time that a text of this form stands for; nothing for any other text.
std::optional<SweepTime> ParseTime(std::string_view text);

// Like 2026-11-23 14:05, in local time.
std::string FormatLocalTime(SweepTime time);

}  // namespace hostsweep
