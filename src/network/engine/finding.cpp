#include "network/engine/finding.h"

namespace hostsweep {

bool IsFree(const Finding& finding) {
  return finding.Host == Presence::Absent && !finding.HasTrouble && !finding.IsReserved &&
         !finding.Name;
}

bool IsSelected(const Finding& finding, Selection selection) {
  if (selection == Selection::All) return true;
  return selection == Selection::Up ? finding.Host == Presence::Up : IsFree(finding);
}

}  // namespace hostsweep
