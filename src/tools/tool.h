// What the tools have in common: finding the program that they stand in for, and failing as the
// shell does.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/process.h"
#include "platform/program_path.h"
#include "platform/search_path.h"

namespace hostsweep {

// Exit statuses of sh(1) for a program that cannot be run, and for one that is not found.
constexpr int CannotRun = 126;
constexpr int NotFound = 127;

// The next program of this name after the running tool on its search path; empty if there is none,
// or if the tool's own path is unknown.
inline std::string NextProgram(const std::string& name) {
  const std::string self = ProgramPath();
  if (self.empty()) return {};  // it could find itself
  const char* const path = std::getenv("PATH");
  return NextProgram(SearchPath(path == nullptr ? "" : path, ""), name, self);
}

// Says on standard error why the tool fails. Returns the status.
inline int Fail(const std::string& tool, const std::string& reason, int status) {
  std::fprintf(stderr, "%s: %s\n", tool.c_str(), reason.c_str());
  return status;
}

// A tool's `main`: the status that `run` returns for the arguments, which lack the tool's own name.
inline int RunTool(int (*run)(const std::vector<std::string>&), int argumentCount,
                   char** arguments) {
  OpenStandardDescriptors();
  try {
    return run(std::vector<std::string>(arguments + std::min(argumentCount, 1),
                                        arguments + argumentCount));
  } catch (...) {
    std::fputs("out of memory\n", stderr);
    return 1;
  }
}

}  // namespace hostsweep
