// The frame around `Run`: from the process entry to its call, and from its end to the exit status.
#pragma once

#include <cstdint>
#include <vector>

#include "app/console_application.h"
#include "platform/text/text.h"

namespace hostsweep {

// Runs the program with its arguments, the first of which is its own path. Returns the exit status.
// Lets exceptions from before `Run` pass, and those that `_CallFunctionWithExceptionHandling` lets
// pass.
std::int64_t RunProgram(const std::vector<Text>& arguments);

// Takes a new application through its life: `Constructor`, the version data, its registration, and
// `Run`, called by `_CallFunctionWithExceptionHandling`. Returns the exit status.
std::int64_t RunApplication(ConsoleApplication& application, const std::vector<Text>& arguments);

// Calls the application's `Run`. Returns the exit status: the result of `Run`, or the code given to
// `Quit` in `Run` or in the handler, or 0 if a `RuntimeException` escapes `Run` and
// `UnhandledException` returns true for it. Passed on are a `RuntimeException` for which it returns
// false, any other exception from `Run`, and any error of the handler itself.
//
// The standard reserves names of this form; no implementation uses this one.
std::int64_t _CallFunctionWithExceptionHandling(  // NOLINT(bugprone-reserved-identifier)
    ConsoleApplication& application, const std::vector<Text>& arguments);

}  // namespace hostsweep
