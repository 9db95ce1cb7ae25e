// The command runner: the only way in which the sweep reaches the operating system's tools.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/text.h"

namespace hostsweep {

// Runs command lines through the system shell, one after the other.
class Shell {
 public:
  Shell();
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;
  virtual ~Shell() = default;

  // Has `/bin/sh` carry out `command` as it is, with the search path of search_path.h, and returns
  // when it has ended. Its standard output becomes `Result`, its standard error is discarded, its
  // standard input is empty. How the command ends makes no difference.
  //
  // Raises `ShellNotAvailableException` if the shell cannot be started, `ShellNotRunningException`
  // if it is lost while its output is read; `Result` is then what it was.
  virtual void Execute(const Text& command);

  // What the last command wrote, byte for byte; empty before the first.
  [[nodiscard]] const Text& Result() const { return result_; }

 protected:
  void SetResult(Text output) { result_ = std::move(output); }

 private:
  std::vector<std::string> environment_;
  Text result_;
};

}  // namespace hostsweep
