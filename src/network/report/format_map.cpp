// The format "map": a character for each address, in rows that begin with their first address.
#include "network/plan/address.h"
#include "network/report/formatters.h"

namespace hostsweep {
namespace {

char Mark(const Finding& finding, Selection selection) {
  if (!IsSelected(finding, selection)) return ' ';
  if (finding.Host == Presence::Up) return '#';
  if (finding.Name) return '+';
  if (IsFree(finding)) return '.';
  return finding.IsReserved && !finding.HasTrouble ? '-' : '?';
}

class MapFormatter : public Formatter {
 public:
  explicit MapFormatter(const Layout& layout) : layout_(layout) {}

  std::string Add(const Finding& finding) override {
    return Put(finding.Address, Mark(finding, layout_.Reported));
  }

  std::string PassOver(std::uint32_t address) override { return Put(address, ' '); }

  std::string End(bool /*isComplete*/) override { return EndRow(); }

 private:
  // Puts the mark of the address into its row. Returns the rows that this completes.
  std::string Put(std::uint32_t address, char mark) {
    std::string rows;
    if (address != next_) rows += EndRow();
    if (row_.empty()) Label(address);
    row_ += mark;
    next_ = address + 1;
    if (next_ % layout_.MapWidth == 0) rows += EndRow();
    return rows;
  }

  std::string EndRow() {
    std::string row;
    row.swap(row_);
    return row.empty() ? row : row + '\n';
  }

  // Begins a row, in which the column of an address is its remainder modulo the width.
  void Label(std::uint32_t address) {
    constexpr std::size_t LabelWidth = 16;
    row_ = FormatAddress(address);
    row_.resize(LabelWidth + address % layout_.MapWidth, ' ');
  }

  Layout layout_;
  std::string row_;         // the row so far; empty between rows
  std::uint32_t next_ = 0;  // the address that would follow in the row
};

}  // namespace

std::unique_ptr<Formatter> MakeMapFormatter(const Layout& layout) {
  return std::make_unique<MapFormatter>(layout);
}

}  // namespace hostsweep
