#include "network/plan/report_choices.h"

#include <array>
#include <utility>

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

}  // namespace hostsweep
