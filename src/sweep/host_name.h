// The reverse lookup: the name that DNS gives an address.
#pragma once

#include "platform/shell.h"
#include "platform/text.h"

namespace hostsweep {

// Runs "/usr/bin/host " with the address; gives what `ParseHostName` makes of its output.
Text LookupHostName(Shell& shell, const Text& address);

// The target of the pointer record in the output of host(1), without its final "."; the address if
// there is no record. The target is all that follows the first "domain name pointer" and one more
// character, white space at the ends left off: several records give a name of several lines.
Text ParseHostName(const Text& output, const Text& address);

}  // namespace hostsweep
