// The program's one output channel, and its end.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace hostsweep {

// Writes the text and a line feed to standard output, at once and in one write, so that lines of
// several processes never mix. Ends the program with exit code 0, by `Quit`, when standard output
// cannot be written any more: nobody is left to print for.
void Print(const Text& line);

// Ends the program with the exit code: everything between here and the frame is released on the
// way. Raises the `EndException` that the frame waits for; do not catch it.
[[noreturn]] void Quit(std::int64_t exitCode);

}  // namespace hostsweep
