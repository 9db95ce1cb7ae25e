// Standard output and standard error, and ending the program.
#pragma once

#include <cstdint>
#include <string>

#include "platform/text/text.h"

namespace hostsweep {

// Writes the text and a line feed to standard output, without buffering and in one call where the
// system takes the line whole. Throws `OutputException` on a write error.
void Print(const Text& line);

// Writes the text to standard error, and waits if a non-blocking one takes no more of it now.
// Ignores write errors: there is nowhere to report them.
void PrintError(const std::string& text);

// Ends the program with the exit code, by throwing the `EndException` that the frame catches:
// everything between the caller and the frame is destroyed.
[[noreturn]] void Quit(std::int64_t exitCode);

}  // namespace hostsweep
