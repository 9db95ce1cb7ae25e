// The format "json": an object on a line of its own for each address, in UTF-8. What could steer a
// terminal is escaped, so that nothing is lost and nothing of it reaches one.
#include <array>
#include <cstdio>

#include "network/plan/address.h"
#include "network/report/formatters.h"
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

std::string String(std::string_view text) {
  std::string string = "\"";
  while (!text.empty()) {
    const std::string_view character = text.substr(0, CharacterSize(text));
    string += Encoded(character);
    text.remove_prefix(character.size());
  }
  return string + '"';
}

std::string StringOrNull(const std::string& text) { return text.empty() ? "null" : String(text); }

std::string Truth(Presence host) {
  if (host == Presence::Unknown) return "null";
  return host == Presence::Up ? "true" : "false";
}

class JsonFormatter : public Formatter {
 public:
  JsonFormatter(const Layout& layout, Makers& makers) : layout_(layout), makers_(makers) {}

  std::string Add(const Finding& finding) override {
    if (!IsSelected(finding, layout_.Reported)) return {};
    return R"({"address":")" + FormatAddress(finding.Address) + R"(","name":)" +
           (finding.Name ? String(*finding.Name) : "null") + R"(,"hardware_address":)" +
           StringOrNull(finding.HardwareAddress) + R"(,"maker":)" +
           StringOrNull(makers_.MakerOf(finding.HardwareAddress)) + R"(,"up":)" +
           Truth(finding.Host) + R"(,"name_source":)" +
           StringOrNull(std::string(WordFor(finding.Source))) + "}\n";
  }

 private:
  Layout layout_;
  Makers& makers_;
};

}  // namespace

std::unique_ptr<Formatter> MakeJsonFormatter(const Layout& layout, Makers& makers) {
  return std::make_unique<JsonFormatter>(layout, makers);
}

}  // namespace hostsweep
