#include "platform/environment.h"

// POSIX leaves the declaration to the program; some systems' headers have one too.
extern "C" char** environ;  // NOLINT(readability-redundant-declaration)

namespace hostsweep {

std::vector<std::string> Environment() {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    variables.emplace_back(*variable);
  }
  return variables;
}

}  // namespace hostsweep
