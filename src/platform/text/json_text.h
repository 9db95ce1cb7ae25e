// The strings of JSON (RFC 8259), in UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// The string, in its quotes, that has this text. What could steer a terminal is escaped, so that
// nothing is lost and nothing of it reaches one; U+FFFD stands for a byte that is not part of
// well-formed UTF-8.
std::string JsonString(std::string_view text);

}  // namespace hostsweep
