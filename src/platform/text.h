// The text type: a value that compares without regard to letter case, so that nobody can compare
// with it by accident. What can be done with a text is in text_operations.h.
#pragma once

#include <string>
#include <utility>

namespace hostsweep {

// A sequence of characters. A character is a Unicode code point in UTF-8 (RFC 3629); a byte that is
// no part of one is a character of its own. The bytes are kept as they came, whatever they are.
class Text {
 public:
  Text() = default;
  Text(std::string bytes) : bytes_(std::move(bytes)) {}
  Text(const char* bytes) : bytes_(bytes) {}

  [[nodiscard]] const std::string& Bytes() const { return bytes_; }

  // Equal character for character, "a" to "z" being the same letters as "A" to "Z". No other
  // letters have case here.
  friend bool operator==(const Text& left, const Text& right);

  friend Text operator+(const Text& left, const Text& right) { return left.bytes_ + right.bytes_; }

 private:
  std::string bytes_;
};

}  // namespace hostsweep
