// Whether what a sweep was told of a host's name is a change.
#pragma once

#include "network/engine/finding.h"

namespace hostsweep {

// True if the host itself has told the name, as it would at any address.
bool IsOwnName(const Finding& finding);

enum class NameNews {
  None,     // what was known holds: it is to be kept, with its source
  Learned,  // what is told now is to be taken, but it may always have been so
  Changed   // what is told now is to be taken, and was different before
};

// Sources are asked in the order of `NameSource`. /etc/hosts and the name servers, where they could
// be asked, say also that there is no name; the silence of a host itself means nothing. So the
// name, or that there is none, which was known before
// - holds, if its source was not asked, or is silent where this means nothing, and no source before
// it
//   tells a name;
// - may always have been wrong, if another source tells a name now that comes before its own, and
//   could not be asked when it was told.
// Only the names, the sources and `IsLookedUp` of the two findings matter.
NameNews CompareNames(const Finding& before, const Finding& now);

// Gives `to` the name of `from`, with all that belongs to it.
void TakeName(Finding& to, const Finding& from);

}  // namespace hostsweep
