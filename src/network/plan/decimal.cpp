#include "network/plan/decimal.h"

namespace hostsweep {

std::optional<std::uint32_t> ParseDecimal(std::string_view text, std::uint32_t limit) {
  if (text.empty() || (text.size() > 1 && text.front() == '0')) return {};
  std::uint64_t number = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') return {};
    number = number * 10 + static_cast<std::uint64_t>(digit - '0');
    if (number > limit) return {};
  }
  return static_cast<std::uint32_t>(number);
}

}  // namespace hostsweep
