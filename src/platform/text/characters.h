// The characters of UTF-8 text: how many bytes each takes, which are white space, and when two are
// the same letter. Nothing here depends on the locale.
#pragma once

#include <cstddef>
#include <string_view>

namespace hostsweep {

// The number of bytes of the first character of `bytes`, which must not be empty: 1 to 4 for a
// well-formed UTF-8 sequence (RFC 3629, section 4), 1 for a byte that begins no such sequence.
std::size_t CharacterSize(std::string_view bytes);

// "A" to "Z" for "a" to "z"; any other byte unchanged, so that longer characters stay whole.
constexpr char AsciiUpper(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

// The bytes without the spaces, tabs, carriage returns and line feeds at their two ends.
std::string_view TrimmedBytes(std::string_view bytes);

// True if both have the same bytes, with the case of ASCII letters ignored.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

}  // namespace hostsweep
