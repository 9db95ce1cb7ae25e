#include "network/report/format.h"

#include "network/report/formatters.h"

namespace hostsweep {

std::unique_ptr<Formatter> MakeFormatter(Format format, const Layout& layout, Makers& makers) {
  switch (format) {
    case Format::Table:
      return MakeTableFormatter(layout, makers);
    case Format::Csv:
      return MakeCsvFormatter(layout, makers);
    case Format::Json:
      return MakeJsonFormatter(layout, makers);
    case Format::Map:
      return MakeMapFormatter(layout);
    default:
      return MakeLinesFormatter(layout);
  }
}

}  // namespace hostsweep
