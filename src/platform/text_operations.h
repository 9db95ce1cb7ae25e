// The operations on texts that the sweep parses and formats with. Positions and lengths count
// characters, the first at position 1; 0 stands for "not found". None of them fails: a count or a
// start beyond the text is taken as its nearest end.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/text.h"

namespace hostsweep {

// Number of characters.
std::int64_t Len(const Text& text);

// The first `count` characters: none for 0 or less, all for a count beyond the length.
Text Left(const Text& text, std::int64_t count);

// The last `count` characters: none for 0 or less, all for a count beyond the length.
Text Right(const Text& text, std::int64_t count);

// The characters from position `start` to the end: all for 1 or less, none beyond the length.
Text Mid(const Text& text, std::int64_t start);

// Position of the first `find` in `source` at or after `start`, or 0. Letter case is disregarded; a
// start of 0 or less is 1, and an empty `find` is nowhere.
std::int64_t InStr(std::int64_t start, const Text& source, const Text& find);

// Without the blanks, tabs, carriage returns and line feeds at both ends.
Text Trim(const Text& text);

// "a" to "z" turned into "A" to "Z", everything else as it is.
Text Uppercase(const Text& text);

// Number of fields that `separator` divides `source` into, empty ones included: its occurrences
// plus one. An empty text is one empty field, and an empty separator divides nothing.
std::int64_t CountFields(const Text& source, const Text& separator);

// Those fields in order, as many as `CountFields` tells.
std::vector<Text> Split(const Text& source, const Text& separator);

// The fields in order with `separator` between neighbours; empty for no fields.
Text Join(const std::vector<Text>& fields, const Text& separator);

// Plain decimal, led by "-" if negative.
Text Str(std::int64_t value);

// The number that the text begins with, to the nearest double: an optional sign, digits, and
// optionally "." with more digits. What follows is ignored; 0 if there is no such number, infinite
// if it is too large. No blanks before it, no exponent, no other radix, no words.
double Val(const Text& text);

}  // namespace hostsweep
