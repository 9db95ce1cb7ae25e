// Decimal numbers as the command line has them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace hostsweep {

// The number of at most `limit` that the text is: digits without a sign or a leading zero. Nothing
// for any other text.
std::optional<std::uint32_t> ParseDecimal(std::string_view text, std::uint32_t limit);

}  // namespace hostsweep
