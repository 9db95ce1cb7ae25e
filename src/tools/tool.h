// The common parts of the tools: their `main`, the program that each stands in for, and failing as
// the shell does.
#pragma once

#include <string>
#include <vector>

#include "platform/exit_status.h"

namespace hostsweep {

// The next program of this name after the running tool, on the search path that it was given and in
// the system's directories; empty if there is none.
std::string ProgramBehind(const std::string& name);

// Runs the program in place of this one. Returns, with a status, only if that fails.
int Become(const std::string& program, std::vector<std::string> arguments);

// Says on standard error that the subject fails, and why. Returns the status.
int Fail(const std::string& subject, const std::string& reason, int status);

// A tool's `main`: the status that `run` returns for the arguments, which lack the tool's own name.
// If it throws, says on standard error what, and returns 1.
int RunTool(int (*run)(const std::vector<std::string>&), int argumentCount, char** arguments);

}  // namespace hostsweep
