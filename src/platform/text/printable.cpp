#include "platform/text/printable.h"

#include "platform/text/characters.h"

namespace hostsweep {

char32_t CodePoint(std::string_view character) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
  if (character.size() == 1) return byteAt(0);
  char32_t code = byteAt(0) & (0xFFU >> (character.size() + 1));  // the bits after the length
  for (std::size_t i = 1; i < character.size(); ++i) code = code << 6 | (byteAt(i) & 0x3FU);
  return code;
}

bool IsPrintable(std::string_view character) {
  const char32_t code = CodePoint(character);
  if (character.size() == 1) return code >= 0x20 && code < 0x7F;
  if (code < 0xA0 || code == 0x61C) return false;      // C1, the Arabic letter mark
  if (code == 0x200E || code == 0x200F) return false;  // the other two marks
  if (code >= 0x2028 && code <= 0x202E) return false;  // separators, embeddings and overrides
  return code < 0x2066 || code > 0x2069;               // isolates
}

std::string Printable(std::string_view text) {
  std::string printable;
  while (!text.empty()) {
    const std::string_view character = text.substr(0, CharacterSize(text));
    printable += IsPrintable(character) ? character : "?";
    text.remove_prefix(character.size());
  }
  return printable;
}

}  // namespace hostsweep
