// The host name in what host(1) prints.
#pragma once

#include "platform/text/text.h"

namespace hostsweep {

// The target of the pointer record in the output of host(1), without its final "."; `address` if
// the output has no such record. The target is everything after the first "domain name pointer" and
// the one character that follows it, trimmed: several records give a name of several lines.
Text ParseHostName(const Text& output, const Text& address);

}  // namespace hostsweep
