// One child process: starting it and waiting for its end. What it prints is its reader's business.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace hostsweep {

// A running command. One that has not ended when its owner goes is killed, so none outlives it.
//
// The child starts with default signal dispositions and an empty signal mask whatever the caller
// has; its standard input is empty, and its standard error is discarded.
class ChildProcess {
 public:
  // Starts `/bin/sh -c command` with the environment (elements "NAME=value") and with the
  // descriptor `output` as standard output. Raises `ShellNotAvailableException` if that fails.
  ChildProcess(const std::string& command, const std::vector<std::string>& environment, int output);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  // True once the child has ended; does not wait.
  bool HasEnded();

  // Returns when the child has ended.
  void Wait();

 private:
  pid_t pid_ = -1;
  bool ended_ = false;
};

}  // namespace hostsweep
