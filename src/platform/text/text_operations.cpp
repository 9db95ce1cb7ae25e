#include "platform/text/text_operations.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/text/characters.h"

namespace hostsweep {
namespace {

std::int64_t CountCharacters(std::string_view bytes) {
  std::int64_t count = 0;
  for (; !bytes.empty(); ++count) bytes.remove_prefix(CharacterSize(bytes));
  return count;
}

// Byte offset of the character after the first `count` ones; at most the size.
std::size_t OffsetAfter(std::string_view bytes, std::int64_t count) {
  std::string_view rest = bytes;
  for (; count > 0 && !rest.empty(); --count) rest.remove_prefix(CharacterSize(rest));
  return bytes.size() - rest.size();
}

// Byte offset of the character at position `start`; 0 for the first one and before.
std::size_t OffsetOf(std::string_view bytes, std::int64_t start) {
  return OffsetAfter(bytes, std::max<std::int64_t>(start, 1) - 1);
}

// True if `source` begins with the characters of `find`. Comparing whole characters prevents a
// stray byte from being found inside a longer character.
bool BeginsWith(std::string_view source, std::string_view find) {
  if (!EqualsIgnoringCase(source.substr(0, find.size()), find)) return false;
  return OffsetAfter(source, CountCharacters(find)) == find.size();
}

// Byte offset of the first `find` at or after `from`, at which a character must begin.
std::size_t Find(std::string_view source, std::string_view find, std::size_t from) {
  if (find.empty()) return std::string_view::npos;
  while (from < source.size()) {
    const std::string_view rest = source.substr(from);
    if (BeginsWith(rest, find)) return from;
    from += CharacterSize(rest);
  }
  return std::string_view::npos;
}

}  // namespace

std::int64_t Len(const Text& text) { return CountCharacters(text.Bytes()); }

Text Left(const Text& text, std::int64_t count) {
  return text.Bytes().substr(0, OffsetAfter(text.Bytes(), count));
}

Text Right(const Text& text, std::int64_t count) {
  const std::int64_t length = Len(text);
  return Mid(text, length - std::clamp<std::int64_t>(count, 0, length) + 1);
}

Text Mid(const Text& text, std::int64_t start) {
  return text.Bytes().substr(OffsetOf(text.Bytes(), start));
}

std::int64_t InStr(std::int64_t start, const Text& source, const Text& find) {
  const std::string_view bytes = source.Bytes();
  const std::size_t found = Find(bytes, find.Bytes(), OffsetOf(bytes, start));
  return found == std::string_view::npos ? 0 : CountCharacters(bytes.substr(0, found)) + 1;
}

bool Contains(const Text& text, const Text& part) { return InStr(0, text, part) > 0; }

Text Trim(const Text& text) { return std::string(TrimmedBytes(text.Bytes())); }

Text Uppercase(const Text& text) {
  std::string bytes = text.Bytes();
  std::transform(bytes.begin(), bytes.end(), bytes.begin(), AsciiUpper);
  return bytes;
}

std::int64_t CountFields(const Text& source, const Text& separator) {
  const std::string& bytes = source.Bytes();
  const std::string& mark = separator.Bytes();
  std::int64_t count = 1;
  for (std::size_t at = Find(bytes, mark, 0); at != std::string_view::npos;
       at = Find(bytes, mark, at + mark.size())) {
    ++count;
  }
  return count;
}

std::vector<Text> Split(const Text& source, const Text& separator) {
  const std::string& bytes = source.Bytes();
  const std::string& mark = separator.Bytes();
  std::vector<Text> fields;
  std::size_t begin = 0;
  for (std::size_t at = Find(bytes, mark, 0); at != std::string_view::npos;
       at = Find(bytes, mark, begin)) {
    fields.emplace_back(bytes.substr(begin, at - begin));
    begin = at + mark.size();
  }
  fields.emplace_back(bytes.substr(begin));
  return fields;
}

Text Join(const std::vector<Text>& fields, const Text& separator) {
  std::string joined;
  for (const Text& field : fields) {
    if (&field != &fields.front()) joined += separator.Bytes();
    joined += field.Bytes();
  }
  return joined;
}

Text Str(std::int64_t value) { return std::to_string(value); }

double Val(const Text& text) {
  constexpr const char* Digits = "0123456789";
  const std::string& bytes = text.Bytes();
  const bool hasSign = !bytes.empty() && (bytes[0] == '+' || bytes[0] == '-');
  const std::size_t first = hasSign ? 1 : 0;
  std::size_t end = std::min(bytes.find_first_not_of(Digits, first), bytes.size());
  if (end == first) return 0;
  if (end < bytes.size() && bytes[end] == '.') end = bytes.find_first_not_of(Digits, end + 1);
  return std::strtod(bytes.substr(0, end).c_str(), nullptr);
}

}  // namespace hostsweep
