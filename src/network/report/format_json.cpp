// The format "json": an object on a line of its own for each address, in UTF-8. Characters that
// could steer a terminal are escaped, so they are neither lost nor reach a terminal.
#include "network/report/formatters.h"
#include "network/report/json_fields.h"

namespace hostsweep {
namespace {

class JsonFormatter : public Formatter {
 public:
  JsonFormatter(const Layout& layout, Makers& makers) : layout_(layout), makers_(makers) {}

  std::string Add(const Finding& finding) override {
    if (!IsSelected(finding, layout_.Reported)) return {};
    return '{' + JsonFields(finding, makers_) + "}\n";
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
