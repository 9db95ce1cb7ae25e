#include "network/plan/address.h"

#include "network/plan/decimal.h"

namespace hostsweep {

std::string FormatAddress(std::uint32_t address) {
  std::string text = std::to_string(address >> 24);
  for (const unsigned shift : {16U, 8U, 0U}) {
    text += '.';
    text += std::to_string(address >> shift & 0xFFU);
  }
  return text;
}

std::optional<std::uint32_t> ParseAddress(std::string_view text) {
  std::uint32_t address = 0;
  for (int part = 0; part < 4; ++part) {
    const std::size_t end = part < 3 ? text.find('.') : text.size();
    if (end == std::string_view::npos) return {};
    const std::optional<std::uint32_t> number = ParseDecimal(text.substr(0, end), 255);
    if (!number) return {};
    address = address << 8 | *number;
    if (part < 3) text.remove_prefix(end + 1);
  }
  return address;
}

}  // namespace hostsweep
