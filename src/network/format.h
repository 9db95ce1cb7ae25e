// The output formats, each of which turns findings into text piece by piece.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "network/finding.h"
#include "network/makers.h"

namespace hostsweep {

enum class Format { Lines, Table, Csv, Json, Map };

// The format of this name: lines, table, csv, json or map. Nothing for any other text.
std::optional<Format> ParseFormat(std::string_view name);

// The choices that a report is made by, besides its format.
struct Layout {
  Selection Report = Selection::All;
  bool IsForTerminal = false;   // lines and csv too are without bytes that could steer a terminal
  std::uint32_t MapWidth = 32;  // addresses in a row of a map, more than 0
};

// The text of a report is that of `Begin`, of each finding in order, and of `End`. Each of these
// pieces consists of whole lines, or is empty.
class Formatter {
 public:
  Formatter() = default;
  Formatter(const Formatter&) = delete;
  Formatter& operator=(const Formatter&) = delete;
  virtual ~Formatter() = default;

  virtual std::string Begin() { return {}; }
  virtual std::string Add(const Finding& finding) = 0;
  virtual std::string End() { return {}; }
};

//   lines  the report line of hostsweep
//   table  columns under a header, for the eye: only addresses with a name or a hardware address,
//          or in a report of the free addresses those
//   csv    records with a header (RFC 4180); a field that a spreadsheet would take for a formula
//          begins with "'"
//   json   an object for each address on a line of its own (RFC 8259), always in UTF-8
//   map    a character for each address: "#" with a hardware address, "+" with a name only, "."
//          free, "?" with nothing known and no answer to a lookup, " " not in the report. A row
//          is given when it is complete. It ends before a multiple of the width and wherever the
//          next address is not the one that follows.
//
// A record or an object has the address, the name, the hardware address and its maker; what is not
// known is empty or null. `makers` must outlive the formatter.
std::unique_ptr<Formatter> MakeFormatter(Format format, const Layout& layout, Makers& makers);

}  // namespace hostsweep
