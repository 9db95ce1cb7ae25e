// IPv4 addresses as numbers in host byte order: 192.168.1.7 is 0xC0A80107.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace hostsweep {

// The address in dotted decimal.
std::string FormatAddress(std::uint32_t address);

// The address that the text is: four numbers from 0 to 255 without leading zeros, joined by ".".
// Nothing for any other text: with leading zeros, 010 is eight to some programs and ten to others.
std::optional<std::uint32_t> ParseAddress(std::string_view text);

}  // namespace hostsweep
