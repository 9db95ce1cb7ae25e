// The state of the process before the program's own work begins.
#pragma once

#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signals, not all in <csignal>

#include <array>

namespace hostsweep {

// The signals by which a failing write terminates a program. `PrepareProcess` ignores them;
// programs that this one starts get their default action back.
constexpr std::array<int, 2> WriteSignals = {SIGPIPE, SIGXFSZ};

// Opens the standard descriptors that are closed on /dev/null, so that no other file gets their
// numbers. Writing to them still fails.
void OpenStandardDescriptors();

// Normalises the process state inherited from the caller. To be called once, before anything else:
// - `OpenStandardDescriptors`.
// - Child processes do not inherit any other descriptor that /dev/fd lists.
// - Writing to a pipe without a reader, or beyond the file size limit, returns an error instead of
//   terminating the program.
// - No signal is blocked, and the ends of child processes are not ignored.
void PrepareProcess();

// Ignores `WriteSignals`: writing to a pipe or a socket without a reader, or beyond the file size
// limit, returns an error instead of terminating the program.
void IgnoreWriteSignals();

// True if the signal is ignored.
bool IsIgnored(int signalNumber);

// Ends the process by the default action of the signal, which is to terminate it.
[[noreturn]] void TerminateBy(int signalNumber);

}  // namespace hostsweep
