// The format "lines": what hostsweep prints.
#include "network/plan/address.h"
#include "network/report/formatters.h"
#include "platform/text/printable.h"
#include "sweep/host_record.h"

namespace hostsweep {
namespace {

class LinesFormatter : public Formatter {
 public:
  explicit LinesFormatter(const Layout& layout) : layout_(layout) {}

  std::string Add(const Finding& finding) override {
    if (!IsSelected(finding, layout_.Reported)) return {};
    const std::string address = FormatAddress(finding.Address);
    const HostRecord record = {address, finding.Name.value_or(address), finding.HardwareAddress};
    const std::string line = FormatReportLine(record, false).Bytes();
    return (layout_.IsForTerminal ? Printable(line) : line) + '\n';
  }

 private:
  Layout layout_;
};

}  // namespace

std::unique_ptr<Formatter> MakeLinesFormatter(const Layout& layout) {
  return std::make_unique<LinesFormatter>(layout);
}

}  // namespace hostsweep
