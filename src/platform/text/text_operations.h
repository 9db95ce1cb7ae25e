// The operations on texts with which the sweep parses and formats. Lengths and positions count
// characters; the first is at position 1, and 0 means "not found". No operation fails: counts
// and starts outside the text are clamped.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/text/text.h"

namespace hostsweep {

// Number of characters.
std::int64_t Len(const Text& text);

// The first `count` characters: none for 0 or less, all for a count beyond the length.
Text Left(const Text& text, std::int64_t count);

// The last `count` characters: none for 0 or less, all for a count beyond the length.
Text Right(const Text& text, std::int64_t count);

// The characters from position `start` to the end: all for 1 or less, none beyond the length.
Text Mid(const Text& text, std::int64_t start);

// Position of the first `find` in `source` at or after `start`, or 0. Letter case is ignored. A
// start of 0 or less counts as 1. An empty `find` is never found.
std::int64_t InStr(std::int64_t start, const Text& source, const Text& find);

// True if `part` occurs in `text`. Letter case is ignored.
bool Contains(const Text& text, const Text& part);

// The text without the spaces, tabs, carriage returns and line feeds at its two ends.
Text Trim(const Text& text);

// The text with "a" to "z" replaced by "A" to "Z"; everything else is unchanged.
Text Uppercase(const Text& text);

// Number of fields into which `separator` divides `source`, empty ones included: its occurrences
// plus one. An empty text is one empty field. An empty separator divides nothing.
std::int64_t CountFields(const Text& source, const Text& separator);

// Those fields in order, as many as `CountFields` returns.
std::vector<Text> Split(const Text& source, const Text& separator);

// The fields in order with `separator` between neighbours; empty for no fields.
Text Join(const std::vector<Text>& fields, const Text& separator);

// The number in plain decimal, with a leading "-" if it is negative.
Text Str(std::int64_t value);

// The decimal number at the beginning of the text, as the nearest double: an optional sign, digits,
// and optionally "." and more digits. The rest of the text is ignored. 0 if the text does not begin
// with such a number; plus or minus infinity if it is too large. Leading white space, exponents,
// other radixes and words such as "inf" are not read.
double Val(const Text& text);

}  // namespace hostsweep
