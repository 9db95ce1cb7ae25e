// The reverse lookup: the name that DNS gives an address.
#pragma once

#include "platform/shell.h"
#include "platform/text/text.h"

namespace hostsweep {

// The command line: "/usr/bin/host " followed by the address.
Text HostNameCommand(const Text& address);

// Runs `HostNameCommand`, and returns `ParseHostName` of its output.
Text LookupHostName(Shell& shell, const Text& address);

// The target of the pointer record in the output of host(1), without its final "."; `address` if
// the output has no such record. The target is everything after the first "domain name pointer" and
// the one character that follows it, trimmed: several records give a name of several lines.
Text ParseHostName(const Text& output, const Text& address);

}  // namespace hostsweep
