// The names in an answer of a name server to a reverse lookup.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hostsweep {

// The targets of the pointer records that the message (RFC 1035, section 4.1) has for this name, or
// for the end of the chain of aliases (CNAME) that begins with it, as delegated zones have them
// (RFC 2317). In alphabetical order, each once. Nothing if the message cannot be read.
std::optional<std::vector<std::string>> PointerNamesIn(std::string_view message,
                                                       const std::string& name);

}  // namespace hostsweep
