// The fields of a finding in JSON, the same wherever a finding is written.
#pragma once

#include <string>

#include "network/engine/finding.h"
#include "network/report/makers.h"

namespace hostsweep {

// The string; null for an empty text.
std::string JsonStringOrNull(const std::string& text);

// "address", "name", "hardware_address", "maker", "up" and "name_source" with their values, without
// the braces of the object. What is not known is null.
std::string JsonFields(const Finding& finding, Makers& makers);

}  // namespace hostsweep
