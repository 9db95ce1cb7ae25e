// The exceptions of the system. In hostsweep itself only the frame catches them.
#pragma once

#include <cstdint>
#include <exception>

namespace hostsweep {

// Base of every exception that is passed to the application's `UnhandledException`.
class RuntimeException : public std::exception {};

// An object that an operation needs is missing.
class NilObjectException : public RuntimeException {};

// The program is to end. Not an error: `Quit` raises it to leave `Run`.
class EndException : public RuntimeException {
 public:
  explicit EndException(std::int64_t exitCode = 0) : exitCode_(exitCode) {}
  [[nodiscard]] std::int64_t ExitCode() const { return exitCode_; }

 private:
  std::int64_t exitCode_;
};

// The thread is to end. In a program of one thread that is the end of the program, with exit code
// 0.
class ThreadEndException : public EndException {};

// A command cannot be started: the system lacks descriptors, processes or the program itself.
class ShellNotAvailableException : public RuntimeException {};

// The output of a running command cannot be read.
class ShellNotRunningException : public RuntimeException {};

}  // namespace hostsweep
