#include "sweep/sweep_range.h"

#include <limits>
#include <optional>

#include "app/app.h"
#include "platform/console.h"
#include "platform/text/text_operations.h"

namespace hostsweep {
namespace {

// Truncates toward zero. A value that does not fit, or is not a number, gives the smallest integer.
std::int64_t ToInteger(double value) {
  constexpr double Limit = 9223372036854775808.0;  // 2 to the 63rd
  const bool fits = value >= -Limit && value < Limit;
  return fits ? static_cast<std::int64_t>(value) : std::numeric_limits<std::int64_t>::min();
}

void WaitStartDelay(const std::vector<Text>& arguments) {
  constexpr double DelayLimit = 20000.0;  // milliseconds; from here on there is no delay
  if (arguments.size() < 5) return;
  const double delay = Val(arguments[4]);
  if (delay < DelayLimit) App::Current().DoEvents(ToInteger(delay));
}

// The range that the arguments describe; nothing if they describe none.
std::optional<SweepRange> ParseRange(const std::vector<Text>& arguments) {
  constexpr std::int64_t HighestEnd = 256;
  std::vector<Text> parts = Split(arguments[1], ".");
  if (parts.size() != 4) return {};
  SweepRange range;
  range.FirstHost = ToInteger(Val(parts.back()));
  parts.pop_back();
  range.Prefix = Join(parts, ".");
  range.HostCount = ToInteger(Val(arguments[2]));
  range.LiveNamesOnly = arguments.size() > 3 && arguments[3] == "True";
  if (range.HostCount < 1 || EndOf(range) > HighestEnd) return {};
  return range;
}

}  // namespace

std::int64_t EndOf(const SweepRange& range) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(range.FirstHost) +
                                   static_cast<std::uint64_t>(range.HostCount));
}

SweepRange ReadSweepRange(const std::vector<Text>& arguments) {
  if (arguments.size() < 3) Quit(0);
  WaitStartDelay(arguments);
  const std::optional<SweepRange> range = ParseRange(arguments);
  if (!range) Quit(0);
  return *range;
}

}  // namespace hostsweep
