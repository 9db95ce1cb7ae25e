// A command line that cannot be understood.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/text/printable.h"

namespace hostsweep {

// Its `what()` is one line that says which argument is wrong and why. It is safe to show on a
// terminal, whatever the argument holds.
class UsageError : public std::runtime_error {
 public:
  explicit UsageError(const std::string& reason) : std::runtime_error(reason) {}
  UsageError(const std::string& argument, const std::string& reason)
      : std::runtime_error((argument.empty() ? "\"\"" : Printable(argument)) + ": " + reason) {}
};

}  // namespace hostsweep
