// The format "csv": RFC 4180, safe to open in a spreadsheet.
#include <string_view>

#include "network/plan/address.h"
#include "network/report/formatters.h"
#include "platform/text/printable.h"

namespace hostsweep {
namespace {

constexpr const char* LineEnd = "\r\n";

std::string Truth(Presence host) {
  if (host == Presence::Unknown) return "";
  return host == Presence::Up ? "true" : "false";
}

class CsvFormatter : public Formatter {
 public:
  CsvFormatter(const Layout& layout, Makers& makers) : layout_(layout), makers_(makers) {}

  std::string Begin() override {
    return std::string("address,name,hardware_address,maker,up,name_source") + LineEnd;
  }

  std::string Add(const Finding& finding) override {
    if (!IsSelected(finding, layout_.Reported)) return {};
    return FormatAddress(finding.Address) + ',' + Field(finding.Name.value_or("")) + ',' +
           Field(finding.HardwareAddress) + ',' + Field(makers_.MakerOf(finding.HardwareAddress)) +
           ',' + Truth(finding.Host) + ',' + std::string(WordFor(finding.Source)) + LineEnd;
  }

 private:
  [[nodiscard]] std::string Field(const std::string& text) const {
    std::string field = layout_.IsForTerminal ? Printable(text) : text;
    constexpr std::string_view FormulaStarts = "=+-@\t\r";
    const bool isFormula = !field.empty() && FormulaStarts.find(field[0]) != std::string_view::npos;
    if (isFormula) field.insert(0, 1, '\'');
    if (field.find_first_of(",\"\r\n") == std::string::npos) return field;
    std::string quoted = "\"";
    for (const char byte : field) quoted.append(byte == '"' ? 2 : 1, byte);
    return quoted + '"';
  }

  Layout layout_;
  Makers& makers_;
};

}  // namespace

std::unique_ptr<Formatter> MakeCsvFormatter(const Layout& layout, Makers& makers) {
  return std::make_unique<CsvFormatter>(layout, makers);
}

}  // namespace hostsweep
