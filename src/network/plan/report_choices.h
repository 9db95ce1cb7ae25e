// What a user chooses about the report.
#pragma once

#include <optional>
#include <string_view>

namespace hostsweep {

// The addresses that the report has: all, those where a host is up, or those that are free.
enum class Selection { All, Up, Free };

enum class Format { Lines, Table, Csv, Json, Map };

// The format of this name: lines, table, csv, json or map. Nothing for any other text.
std::optional<Format> ParseFormat(std::string_view name);

}  // namespace hostsweep
