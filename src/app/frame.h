// The frame: from the process entry to `Run`, and from the end of `Run` to the exit status.
#pragma once

#include <cstdint>
#include <vector>

#include "app/console_application.h"
#include "platform/text.h"

namespace hostsweep {

// Runs the program with its arguments, the first of which is its own path; gives the exit status.
// An error before `Run`, or one that `_CallFunctionWithExceptionHandling` lets pass, passes on.
std::int64_t RunProgram(const std::vector<Text>& arguments);

// Calls the application's `Run` and gives the exit status: its result, or the code given to `Quit`,
// or 0 when a `RuntimeException` escapes it and `UnhandledException` tells it handled. One that is
// not handled, anything that is no `RuntimeException` and any error of the handler itself pass on.
//
// The name is the frame's; the standard reserves its spelling, but nothing else uses it.
std::int64_t _CallFunctionWithExceptionHandling(  // NOLINT(bugprone-reserved-identifier)
    ConsoleApplication& application, const std::vector<Text>& arguments);

}  // namespace hostsweep
