// A pipe, and waiting for what comes out of it.
#pragma once

#include <chrono>
#include <string>

#include "platform/descriptor.h"

namespace hostsweep {

// The two ends of a pipe. Programs that this process starts do not inherit them.
struct Pipe {
  Descriptor Reader;
  Descriptor Writer;
};

// A new pipe. Raises `ShellNotAvailableException` if the system has none to give.
Pipe OpenPipe();

// True if the descriptor can be read, or has reached its end, within the time, which is 0 or more.
// Raises `ShellNotRunningException` if waiting fails.
bool BecomesReadable(const Descriptor& reader, std::chrono::milliseconds time);

// Waits until the descriptor can be read, and appends all that a pipe holds then to `output`. False
// at its end. Raises `ShellNotRunningException` if reading fails.
bool ReadOnce(const Descriptor& reader, std::string& output);

}  // namespace hostsweep
