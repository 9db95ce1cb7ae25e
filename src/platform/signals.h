// The actions of signals.
#pragma once

#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signals, not all in <csignal>

#include <array>

namespace hostsweep {

// The signals by which a failing write terminates a program.
constexpr std::array<int, 2> WriteSignals = {SIGPIPE, SIGXFSZ};

// Ignores `WriteSignals`: writing to a pipe or a socket without a reader, or beyond the file size
// limit, returns an error instead of terminating the program.
void IgnoreWriteSignals();

bool IsIgnored(int signalNumber);

// Ends the process by the default action of the signal, which is to terminate it.
[[noreturn]] void TerminateBy(int signalNumber);

}  // namespace hostsweep
