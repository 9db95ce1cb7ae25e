// What a single character of a text is: how many bytes it takes, and which characters are the same
// letter. Nothing here depends on the locale.
#pragma once

#include <cstddef>
#include <string_view>

namespace hostsweep {

// Bytes taken by the first character of `bytes`, which must not be empty: 1 to 4 for a well-formed
// UTF-8 sequence (RFC 3629, section 4), 1 for a byte that begins none.
std::size_t CharacterSize(std::string_view bytes);

// "A" to "Z" for "a" to "z"; any other byte as it is, so the bytes of a longer character too.
constexpr char UpperCase(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

// True if both have the same bytes, letter case in ASCII disregarded.
bool SameLetters(std::string_view left, std::string_view right);

}  // namespace hostsweep
