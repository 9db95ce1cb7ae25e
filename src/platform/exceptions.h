// The exceptions by which the program's own operations fail or end it. The frame handles those that
// escape the application's `Run`.
#pragma once

#include <cstdint>
#include <exception>

namespace hostsweep {

// Base of these exceptions. If an exception other than an `EndException` escapes `Run`, it is given
// to the application's `UnhandledException`.
class RuntimeException : public std::exception {};

// An object that an operation needs is missing.
class NilObjectException : public RuntimeException {};

// The program is to end. Not an error: `Quit` throws it to leave `Run`.
class EndException : public RuntimeException {
 public:
  explicit EndException(std::int64_t exitCode = 0) : exitCode_(exitCode) {}
  [[nodiscard]] std::int64_t ExitCode() const { return exitCode_; }

 private:
  std::int64_t exitCode_;
};

// The thread is to end, and with it a program of one thread, with exit code 0. Part of the
// application's interface; this program does not itself throw it.
class ThreadEndException : public EndException {};

// The shell cannot be started: the system lacks descriptors, processes or the shell itself.
class ShellNotAvailableException : public RuntimeException {};

// The output of a running command cannot be read.
class ShellNotRunningException : public RuntimeException {};

// Standard output cannot be written: its reader is gone, or there is no room.
class OutputException : public RuntimeException {};

}  // namespace hostsweep
