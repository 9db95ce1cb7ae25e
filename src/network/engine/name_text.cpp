#include "network/engine/name_text.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <optional>

#include "platform/text/characters.h"
#include "platform/text/printable.h"

namespace hostsweep {
namespace {

constexpr std::size_t EscapeSize = 4;  // "\DDD"

std::string Escaped(std::string_view character) {
  std::string text;
  for (const char byte : character) {
    std::array<char, EscapeSize + 1> escape{};
    std::snprintf(escape.data(), escape.size(), "\\%03d", static_cast<unsigned char>(byte));
    text += escape.data();
  }
  return text;
}

// The bytes as characters. A backslash is a character like any other.
std::string Characters(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::string_view character = bytes.substr(0, CharacterSize(bytes));
    const bool isShown = IsPrintable(character) && character != " ";
    text += isShown ? std::string(character) : Escaped(character);
    bytes.remove_prefix(character.size());
  }
  return text;
}

// The byte outside ASCII for which an escape at the beginning of the text stands; nothing if there
// is no such escape.
std::optional<char> HighByte(std::string_view text) {
  if (text.size() < EscapeSize || text[0] != '\\') return {};
  int number = 0;
  for (const char digit : text.substr(1, 3)) {
    if (digit < '0' || digit > '9') return {};
    number = number * 10 + (digit - '0');
  }
  if (number < 0x80 || number > 0xFF) return {};
  return static_cast<char>(number);
}

}  // namespace

std::string NameText(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\\');
    text += Characters(bytes.substr(0, end));
    if (end == std::string_view::npos) break;
    text += "\\\\";
    bytes.remove_prefix(end + 1);
  }
  return text;
}

std::string WithCharacters(std::string_view name) {
  std::string text;
  std::string bytes;  // bytes outside ASCII, in a row
  while (!name.empty()) {
    if (const std::optional<char> byte = HighByte(name)) {
      bytes += *byte;
      name.remove_prefix(EscapeSize);
      continue;
    }
    text += Characters(bytes);
    bytes.clear();
    const std::size_t size = name[0] == '\\' && name.size() > 1 ? 2 : 1;
    text += name.substr(0, size);
    name.remove_prefix(size);
  }
  return text + Characters(bytes);
}

}  // namespace hostsweep
