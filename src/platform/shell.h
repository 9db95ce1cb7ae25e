// The command runner, through which the sweep reaches the operating system's tools.
#pragma once

#include <utility>

#include "platform/text/text.h"

namespace hostsweep {

// Runs command lines through the system shell, one after the other.
class Shell {
 public:
  Shell() = default;
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;

  // Has `/bin/sh` carry out `command` unchanged, with this process's environment, and returns when
  // it has ended. Its standard output becomes `Result`, its standard error is discarded, and its
  // standard input is empty. The exit status makes no difference. Processes that the command leaves
  // running are not waited for.
  //
  // Throws `ShellNotAvailableException` if the shell cannot be started, and
  // `ShellNotRunningException` if its output cannot be read; `Result` is then unchanged.
  virtual void Execute(const Text& command);

  virtual ~Shell() = default;

  // The output of the most recent command, byte for byte; empty before the first one.
  [[nodiscard]] const Text& Result() const { return result_; }

 protected:
  void SetResult(Text output) { result_ = std::move(output); }

 private:
  Text result_;
};

}  // namespace hostsweep
