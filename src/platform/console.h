// Standard output, and ending the program.
#pragma once

#include <cstdint>

#include "platform/text/text.h"

namespace hostsweep {

// Writes the text and a line feed to standard output, without buffering and in one call where the
// system takes the line whole. Ends the program by `Quit(0)` on a write error.
void Print(const Text& line);

// Ends the program with the exit code, by raising the `EndException` that only the frame catches:
// everything between the caller and the frame is released.
[[noreturn]] void Quit(std::int64_t exitCode);

}  // namespace hostsweep
