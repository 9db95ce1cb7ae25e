// Text that may come from anywhere, made fit for a terminal.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// True if a terminal shows the character and does nothing else: false for control characters (C0,
// DEL and C1), for characters that set the direction of text (Unicode Standard Annex 9, section 2),
// for line and paragraph separators, and for a byte that is not part of well-formed UTF-8.
// `character` has the size that `CharacterSize` gives.
bool IsPrintable(std::string_view character);

// The code point of a character that is well-formed UTF-8.
char32_t CodePoint(std::string_view character);

// The text with "?" in place of every character that is not printable.
std::string Printable(std::string_view text);

}  // namespace hostsweep
