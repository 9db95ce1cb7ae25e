// What every tool does first: finding the program that it stands in for.
#pragma once

#include <cstdlib>
#include <string>

#include "platform/program_path.h"
#include "platform/search_path.h"

namespace hostsweep {

// The next program of this name after the running tool on its search path; empty if there is none.
inline std::string NextProgram(const std::string& name) {
  const char* const path = std::getenv("PATH");
  return NextProgram(SearchPath(path == nullptr ? "" : path, ""), name, ProgramPath());
}

}  // namespace hostsweep
