#include "network/engine/finding.h"

namespace hostsweep {

bool IsFree(const Finding& finding) {
  return finding.Host == Presence::Absent && !finding.HasTrouble && !finding.IsReserved &&
         !finding.Name;
}

std::string_view WordFor(NameSource source) {
  switch (source) {
    case NameSource::Hosts:
      return "hosts";
    case NameSource::Dns:
      return "dns";
    case NameSource::Mdns:
      return "mdns";
    case NameSource::NetBios:
      return "netbios";
    default:
      return "";
  }
}

bool IsSelected(const Finding& finding, Selection selection) {
  if (selection == Selection::All) return true;
  return selection == Selection::Up ? finding.Host == Presence::Up : IsFree(finding);
}

}  // namespace hostsweep
