// Decimal numbers in arguments.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace hostsweep {

// The number that the text is, written in digits without a sign or a leading zero, and at most
// `limit`. Nothing for any other text.
std::optional<std::uint32_t> ParseDecimal(std::string_view text, std::uint32_t limit);

}  // namespace hostsweep
