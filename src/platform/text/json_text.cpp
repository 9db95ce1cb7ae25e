#include "platform/text/json_text.h"

#include <array>
#include <cstdio>

#include "platform/text/characters.h"
#include "platform/text/printable.h"

namespace hostsweep {
namespace {

constexpr const char* ReplacementCharacter = "\xEF\xBF\xBD";  // U+FFFD

std::string Escaped(char32_t code) {
  std::array<char, 16> escape = {};
  std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(code));
  return escape.data();
}

// One character within a string.
std::string Encoded(std::string_view character) {
  const bool isInvalid = character.size() == 1 && CodePoint(character) >= 0x80;
  if (isInvalid) return ReplacementCharacter;
  if (!IsPrintable(character)) return Escaped(CodePoint(character));
  if (character == "\"" || character == "\\") return '\\' + std::string(character);
  return std::string(character);
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string string = "\"";
  while (!text.empty()) {
    const std::string_view character = text.substr(0, CharacterSize(text));
    string += Encoded(character);
    text.remove_prefix(character.size());
  }
  return string + '"';
}

}  // namespace hostsweep
