// The format "lines": what hostsweep prints.
#include "network/formatters.h"
#include "network/printable.h"

namespace hostsweep {
namespace {

class LinesFormatter : public Formatter {
 public:
  explicit LinesFormatter(const Layout& layout) : layout_(layout) {}

  std::string Add(const Finding& finding) override {
    if (!IsSelected(finding, layout_.Report)) return {};
    return (layout_.IsForTerminal ? Printable(finding.Line) : finding.Line) + '\n';
  }

 private:
  Layout layout_;
};

}  // namespace

std::unique_ptr<Formatter> MakeLinesFormatter(const Layout& layout) {
  return std::make_unique<LinesFormatter>(layout);
}

}  // namespace hostsweep
