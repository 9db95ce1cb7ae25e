// The strings of JSON (RFC 8259), in UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// The text as a JSON string, in its quotes. Characters that could steer a terminal are escaped.
// U+FFFD stands for a byte that is not part of well-formed UTF-8.
std::string JsonString(std::string_view text);

}  // namespace hostsweep
