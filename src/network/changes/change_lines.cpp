#include "network/changes/change_lines.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "network/plan/address.h"
#include "network/report/json_fields.h"
#include "platform/text/json_text.h"
#include "platform/text/printable.h"
#include "platform/text/text_operations.h"

namespace hostsweep {
namespace {

constexpr std::int64_t MakerWidth = 22;  // as in the format "table"
constexpr std::int64_t NameWidth = 40;   // a longer name moves what follows it
constexpr std::size_t ChangeWidth = 7;   // "renamed"

// The cells of one change, the last of which can be empty.
using Row = std::array<std::string, 6>;
constexpr std::size_t Last = std::tuple_size<Row>::value - 1;

std::string Cell(const std::string& text) { return text.empty() ? "-" : Printable(text); }

std::string Before(const Change& change) {
  switch (change.What) {
    case Change::Kind::Moved: {
      const std::string from = "from " + FormatAddress(change.FromAddress);
      return change.WasCard.empty() ? from : from + "  was " + Cell(change.WasCard);
    }
    case Change::Kind::Renamed:
      return "from " + Cell(change.FromName.value_or(""));
    case Change::Kind::Other:
      return "was " + Cell(change.WasCard);
    case Change::Kind::Gone:
    case Change::Kind::Back: {
      const std::string time = "last seen " + FormatLocalTime(change.LastSeen);
      return change.WasCard.empty() ? time : time + "  was " + Cell(change.WasCard);
    }
    default:
      return {};
  }
}

Row RowOf(const Change& change, Makers& makers) {
  const Finding& host = change.Host.Known;
  const std::string maker = Left(makers.MakerOf(host.HardwareAddress), MakerWidth).Bytes();
  return {std::string(WordFor(change.What)), FormatAddress(host.Address),
          Cell(host.HardwareAddress),        Cell(maker),
          Cell(host.Name.value_or("")),      Before(change)};
}

std::size_t WidthOf(const std::string& cell) { return static_cast<std::size_t>(Len(cell)); }

}  // namespace

std::string FormatChanges(const std::vector<Change>& changes, Makers& makers) {
  std::vector<Row> rows;
  std::array<std::size_t, Last> widths = {ChangeWidth};
  for (const Change& change : changes) {
    rows.push_back(RowOf(change, makers));
    for (std::size_t i = 0; i < Last; ++i) {
      const std::size_t room = std::min<std::size_t>(WidthOf(rows.back()[i]), NameWidth);
      widths[i] = std::max(widths[i], room);
    }
  }
  std::string text;
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < Last; ++i) {
      const std::size_t width = WidthOf(row[i]);
      text += row[i] + std::string(width < widths[i] ? widths[i] - width : 0, ' ') + "  ";
    }
    text += row[Last];
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }
  return text;
}

std::string FormatChangesInJson(const std::vector<Change>& changes, Makers& makers) {
  std::string text;
  for (const Change& change : changes) {
    const Change::Kind what = change.What;
    text +=
        R"({"change":)" + JsonString(WordFor(what)) + ',' + JsonFields(change.Host.Known, makers);
    if (what == Change::Kind::Moved) {
      text += R"(,"from":)" + JsonString(FormatAddress(change.FromAddress));
    }
    if (what == Change::Kind::Renamed) {
      text += R"(,"from":)" + (change.FromName ? JsonString(*change.FromName) : "null");
    }
    if (!change.WasCard.empty()) text += R"(,"was":)" + JsonString(change.WasCard);
    if (what == Change::Kind::Gone || what == Change::Kind::Back) {
      text += R"(,"last_seen":)" + JsonString(FormatTime(change.LastSeen));
    }
    text += "}\n";
  }
  return text;
}

}  // namespace hostsweep
