// The format "table": columns for the eye. No byte of them can steer a terminal.
#include <algorithm>
#include <cstdint>

#include "network/plan/address.h"
#include "network/report/formatters.h"
#include "platform/text/printable.h"
#include "platform/text/text_operations.h"

namespace hostsweep {
namespace {

// Widths of the columns, in characters.
constexpr std::int64_t AddressWidth = 15;
constexpr std::int64_t HardwareAddressWidth = 17;
constexpr std::int64_t MakerWidth = 22;  // room for "(locally administered)"

// A column and the two spaces after it.
std::string Padded(const std::string& text, std::int64_t width) {
  return text +
         std::string(static_cast<std::size_t>(std::max<std::int64_t>(width - Len(text), 0)), ' ') +
         "  ";
}

std::string Row(const std::string& address, const std::string& hardwareAddress,
                const std::string& maker, const std::string& name) {
  std::string row = Padded(address, AddressWidth) + Padded(hardwareAddress, HardwareAddressWidth) +
                    Padded(Left(maker, MakerWidth).Bytes(), MakerWidth);
  if (name.empty()) row.erase(row.find_last_not_of(' ') + 1);
  return row + name + '\n';
}

class TableFormatter : public Formatter {
 public:
  TableFormatter(const Layout& layout, Makers& makers) : layout_(layout), makers_(makers) {}

  std::string Begin() override { return Row("ADDRESS", "HARDWARE ADDRESS", "MAKER", "NAME"); }

  std::string Add(const Finding& finding) override {
    const bool isKnown =
        finding.Host == Presence::Up || finding.Name || !finding.HardwareAddress.empty();
    if (!IsSelected(finding, layout_.Reported)) return {};
    if (!isKnown && layout_.Reported != Selection::Free) return {};
    return Row(FormatAddress(finding.Address), Printable(finding.HardwareAddress),
               Printable(makers_.MakerOf(finding.HardwareAddress)),
               Printable(finding.Name.value_or("")));
  }

 private:
  Layout layout_;
  Makers& makers_;
};

}  // namespace

std::unique_ptr<Formatter> MakeTableFormatter(const Layout& layout, Makers& makers) {
  return std::make_unique<TableFormatter>(layout, makers);
}

}  // namespace hostsweep
