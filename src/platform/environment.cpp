#include "platform/environment.h"

// POSIX has every program declare it, though some systems do so as well.
extern "C" char** environ;  // NOLINT(readability-redundant-declaration)

namespace hostsweep {

std::vector<std::string> Environment() {
  std::vector<std::string> variables;
  if (environ == nullptr) return variables;  // as clearenv(3) leaves it
  for (char** variable = environ; *variable != nullptr; ++variable) {
    variables.emplace_back(*variable);
  }
  return variables;
}

}  // namespace hostsweep
