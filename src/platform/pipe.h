// A pipe, and waiting for what comes out of it.
#pragma once

#include <chrono>
#include <string>

#include "platform/clock.h"
#include "platform/descriptor.h"

namespace hostsweep {

// The two ends of a pipe. Programs that this process starts do not inherit them.
struct Pipe {
  Descriptor Reader;
  Descriptor Writer;
};

// A new pipe. Throws `std::system_error` if it cannot be opened.
Pipe OpenPipe();

// How an attempt to read ended: with data, at the end of the pipe, or without either in time.
enum class ReadResult { Data, End, Timeout };

// Waits until the pipe can be read, at most that long, not counting what comes before a signal, and
// then appends all that it holds to `output`. `time` is not negative. Throws `std::system_error` if
// waiting or reading fails.
ReadResult ReadWithin(std::chrono::milliseconds time, const Descriptor& reader,
                      std::string& output);

// The same, waiting until that time. `Timeout`, with nothing read, if it has passed.
ReadResult ReadUntil(Clock::time_point time, const Descriptor& reader, std::string& output);

}  // namespace hostsweep
