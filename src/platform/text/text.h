// The text type. Its equality ignores letter case, so that no comparison is case-sensitive by
// mistake. The operations on texts are in text_operations.h.
#pragma once

#include <string>
#include <utility>

namespace hostsweep {

// A sequence of characters. A character is a Unicode code point in UTF-8 (RFC 3629) or a byte that
// is not part of one. Any bytes are allowed, and they are kept unchanged.
class Text {
 public:
  Text() = default;
  Text(std::string bytes) : bytes_(std::move(bytes)) {}
  Text(const char* bytes) : bytes_(bytes) {}

  [[nodiscard]] const std::string& Bytes() const { return bytes_; }

  // Equal character for character, with the case of ASCII letters ignored; other letters are
  // compared exactly.
  friend bool operator==(const Text& left, const Text& right);

  friend Text operator+(const Text& left, const Text& right) { return left.bytes_ + right.bytes_; }

 private:
  std::string bytes_;
};

}  // namespace hostsweep
