// The names in an answer of a name server to a reverse lookup.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hostsweep {

// The type and the class of pointer records (RFC 1035, sections 3.2.2 and 3.2.4).
constexpr int PointerType = 12;
constexpr int InternetClass = 1;

// The name that a reverse lookup of the address asks for: 7.0.50.10.in-addr.arpa (RFC 1035, section
// 3.5).
std::string ReverseName(std::uint32_t address);

// The targets of the pointer records that the message (RFC 1035, section 4.1) has for this name, or
// for the end of the chain of aliases (CNAME) that begins with it, as delegated zones have them
// (RFC 2317). In alphabetical order, each once, without the final dot: that of the root domain is
// empty. As host(1) writes them: "\DDD", three decimal digits, for a byte that is not printable
// ASCII or is a space, and "\" before a character that is special in zone files. Nothing if the
// message cannot be read.
std::optional<std::vector<std::string>> PointerNamesIn(std::string_view message,
                                                       const std::string& name);

}  // namespace hostsweep
