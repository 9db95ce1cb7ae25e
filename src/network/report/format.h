// The output formats, each of which turns findings into text piece by piece.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "network/engine/finding.h"
#include "network/plan/report_choices.h"
#include "network/report/makers.h"

namespace hostsweep {

// What a report depends on besides its format.
struct Layout {
  Selection Reported = Selection::All;
  bool IsForTerminal = false;   // also lines and csv have no bytes that could steer a terminal
  std::uint32_t MapWidth = 32;  // addresses in a row of a map, more than 0
};

// The text of a report is what `Begin` returns, then `Add` for each finding in order, and then
// `End`, which is told whether the sweep is complete. `PassOver` takes the place of `Add` for an
// address that is not in the report. Each piece is whole lines, or empty.
class Formatter {
 public:
  Formatter() = default;
  Formatter(const Formatter&) = delete;
  Formatter& operator=(const Formatter&) = delete;
  virtual ~Formatter() = default;

  virtual std::string Begin() { return {}; }
  virtual std::string Add(const Finding& finding) = 0;
  virtual std::string PassOver(std::uint32_t /*address*/) { return {}; }
  virtual std::string End(bool /*isComplete*/) { return {}; }
};

//   lines  the report line of hostsweep
//   table  columns under a header, only for addresses with a host, a name or a hardware address;
//          in a report of the free addresses, for these
//   csv    records with a header (RFC 4180); a field that a spreadsheet would take for a formula
//          begins with "'"
//   json   an object for each address on a line of its own (RFC 8259), always in UTF-8
//   map    a character for each address: "#" with a host that is up, "+" with a name only, "."
//          free, "-" reserved, "?" not known, " " not in the report. A row is returned when it is
//          complete. It ends before a multiple of the width, and before an address that does not
//          follow the last.
//
// A record or an object has the address, the name, the hardware address, its maker, whether a host
// is up, and where the name comes from; what is not known is empty or null. `makers` must outlive
// the formatter.
std::unique_ptr<Formatter> MakeFormatter(Format format, const Layout& layout, Makers& makers);

}  // namespace hostsweep
