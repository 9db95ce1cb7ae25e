// The result of asking for the name of an address.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "network/engine/finding.h"
#include "network/engine/troubles.h"

namespace hostsweep {

// A name, or that there is no name, or why this is not known.
struct NameResult {
  std::uint64_t Key = 0;  // as given with the question
  std::optional<std::string> Name;
  NameSource Source = NameSource::None;
  std::optional<Trouble> Failure;
};

}  // namespace hostsweep
