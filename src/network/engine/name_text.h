// Names that do not come from the DNS, made fit for reports: characters that a terminal only shows
// stay as they are, in UTF-8; a space, and every byte of other characters, becomes "\DDD", three
// decimal digits.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// The text of a name that has these bytes. A backslash is doubled.
std::string NameText(std::string_view bytes);

// The text of a name in which "\DDD" stands for every byte outside ASCII, as in `DnsRecord`.
std::string WithCharacters(std::string_view name);

}  // namespace hostsweep
