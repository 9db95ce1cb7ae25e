#include "platform/text/characters.h"

#include <algorithm>

namespace hostsweep {
namespace {

struct Lead {
  std::size_t size = 1;                // of the sequences that begin so; 1 if there are none
  unsigned char lowestSecond = 0x80;   // bounds of its second byte, which exclude overlong forms,
  unsigned char highestSecond = 0xBF;  // surrogates and everything above U+10FFFF
};

// The table of RFC 3629, section 4.
constexpr Lead LeadOf(unsigned char byte) {
  if (byte < 0xC2 || byte > 0xF4) return {};
  if (byte < 0xE0) return {2};
  if (byte == 0xE0) return {3, 0xA0};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3};
  if (byte == 0xF0) return {4, 0x90};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {4};
}

constexpr unsigned char Unsigned(char byte) { return static_cast<unsigned char>(byte); }

constexpr bool IsContinuation(char byte) { return (Unsigned(byte) & 0xC0U) == 0x80U; }

}  // namespace

std::size_t CharacterSize(std::string_view bytes) {
  const Lead lead = LeadOf(Unsigned(bytes[0]));
  if (lead.size == 1 || bytes.size() < lead.size) return 1;
  const unsigned char second = Unsigned(bytes[1]);
  if (second < lead.lowestSecond || second > lead.highestSecond) return 1;
  const std::string_view others = bytes.substr(2, lead.size - 2);
  return std::all_of(others.begin(), others.end(), IsContinuation) ? lead.size : 1;
}

std::string_view TrimmedBytes(std::string_view bytes) {
  constexpr std::string_view WhiteSpace = " \t\r\n";
  const std::size_t first = bytes.find_first_not_of(WhiteSpace);
  if (first == std::string_view::npos) return {};
  return bytes.substr(first, bytes.find_last_not_of(WhiteSpace) - first + 1);
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return AsciiUpper(a) == AsciiUpper(b); });
}

}  // namespace hostsweep
