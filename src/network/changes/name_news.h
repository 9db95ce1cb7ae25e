// Whether what a sweep has learned of a host's name is a change.
#pragma once

#include "network/engine/finding.h"

namespace hostsweep {

// True if the name comes from the host itself, which has it at any address.
bool IsOwnName(const Finding& finding);

enum class NameNews {
  None,     // what was known still holds: it is to be kept, with its source
  Learned,  // what was found now is to be taken, but may have been so before
  Changed   // what was found now is to be taken, and was different before
};

// Sources are asked in the order of `NameSource`. /etc/hosts and the name servers, if they could be
// asked, also say that there is no name; the silence of a host itself means nothing. So what was
// known before, a name or that there is no name,
// - still holds, if its source was not asked, or its silence means nothing, and no source
//   that comes before it has a name now;
// - may always have been wrong, if a source that comes before its own has a name now, and could not
//   be asked then.
// Only the names, the sources and `IsLookedUp` of the two findings matter.
NameNews CompareNames(const Finding& before, const Finding& now);

// Gives `to` the name of `from`, with all that belongs to it.
void TakeName(Finding& to, const Finding& from);

}  // namespace hostsweep
