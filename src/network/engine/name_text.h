// Names that do not come from the DNS, made fit for reports: characters that a terminal shows and
// does nothing else stay as they are, in UTF-8, and "\DDD", three decimal digits, stands for every
// byte of others and for a space.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// The text of a name whose bytes are these. A backslash is doubled.
std::string NameText(std::string_view bytes);

// The text of a name in which "\DDD" stands for every byte outside ASCII, as in `DnsRecord`.
std::string WithCharacters(std::string_view name);

}  // namespace hostsweep
