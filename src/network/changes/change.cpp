#include "network/changes/change.h"

namespace hostsweep {

std::string_view WordFor(Change::Kind what) {
  switch (what) {
    case Change::Kind::New:
      return "new";
    case Change::Kind::Gone:
      return "gone";
    case Change::Kind::Moved:
      return "moved";
    case Change::Kind::Renamed:
      return "renamed";
    case Change::Kind::Other:
      return "other";
    default:
      return "back";
  }
}

}  // namespace hostsweep
