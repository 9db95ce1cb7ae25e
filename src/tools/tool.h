// The common parts of the tools: their `main`, the program that each stands in for, and failing as
// the shell does.
#pragma once

#include <string>
#include <vector>

#include "platform/exit_status.h"

namespace hostsweep {

// The path of the next program of this name after the running tool, on its search path and then in
// the system's directories; empty if there is no such program.
std::string ProgramBehind(const std::string& name);

// Runs the program in place of this one. Returns, with a status, only if that fails.
int Become(const std::string& program, std::vector<std::string> arguments);

// Prints subject and reason, as "subject: reason", on standard error. Returns the status.
int Fail(const std::string& subject, const std::string& reason, int status);

// The body of a tool's `main`. Calls `run` with the arguments, without the tool's own name, and
// returns its status. If it throws, prints the exception's text on standard error and returns 1.
int RunTool(int (*run)(const std::vector<std::string>&), int argumentCount, char** arguments);

}  // namespace hostsweep
