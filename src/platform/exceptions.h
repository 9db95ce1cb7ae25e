// The exceptions of the system. An exception that no one expects ends the program, so there are
// few.
#pragma once

#include <cstdint>
#include <exception>

namespace hostsweep {

// Base of every exception that the application's handler is offered.
class RuntimeException : public std::exception {};

// An object that an operation needs does not exist.
class NilObjectException : public RuntimeException {};

// The program is to end: not an error, but the way out of `Run` (see `Quit`).
class EndException : public RuntimeException {
 public:
  explicit EndException(std::int64_t exitCode = 0) : exitCode_(exitCode) {}
  [[nodiscard]] std::int64_t ExitCode() const { return exitCode_; }

 private:
  std::int64_t exitCode_;
};

// The thread is to end, which in a program of one thread is the same with exit code 0.
class ThreadEndException : public EndException {};

// The system shell cannot be started: no descriptors, no processes, no shell.
class ShellNotAvailableException : public RuntimeException {};

// The shell was lost while its output was read.
class ShellNotRunningException : public RuntimeException {};

}  // namespace hostsweep
