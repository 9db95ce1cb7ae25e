#include "network/finding.h"

#include <algorithm>

namespace hostsweep {
namespace {

std::string OnOneLine(const Text& text) {
  std::string line = text.Bytes();
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

}  // namespace

Finding MakeFinding(std::uint32_t address, const HostRecord& record, bool isComplete) {
  Finding finding;
  finding.Address = address;
  finding.HasName = !(record.Name == record.Address);
  if (finding.HasName) finding.Name = OnOneLine(record.Name);
  finding.HardwareAddress = OnOneLine(record.HardwareAddress);
  finding.Line = OnOneLine(FormatReportLine(record, false));
  finding.IsComplete = isComplete;
  return finding;
}

bool IsUp(const Finding& finding) { return !finding.HardwareAddress.empty(); }

bool IsFree(const Finding& finding) {
  return finding.IsComplete && !finding.IsReserved && !finding.HasName && !IsUp(finding);
}

bool IsSelected(const Finding& finding, Selection selection) {
  if (selection == Selection::All) return true;
  return selection == Selection::Up ? IsUp(finding) : IsFree(finding);
}

}  // namespace hostsweep
