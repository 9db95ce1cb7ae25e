#include "network/format.h"

#include <array>
#include <utility>

#include "network/formatters.h"

namespace hostsweep {

std::optional<Format> ParseFormat(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, Format>, 5> Formats = {{{"lines", Format::Lines},
                                                                           {"table", Format::Table},
                                                                           {"csv", Format::Csv},
                                                                           {"json", Format::Json},
                                                                           {"map", Format::Map}}};
  for (const auto& [known, format] : Formats) {
    if (known == name) return format;
  }
  return {};
}

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
