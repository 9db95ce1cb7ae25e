// One child process: starting a program, waiting for its end, and killing it. What it prints is for
// the owner of the descriptors to read.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace hostsweep {

// A program that has been started. The destructor kills a child that is still running and waits for
// its end, so no child outlives its owner.
//
// `command` is the program's path followed by its arguments. The program gets this process's
// environment. Starting throws `std::system_error` if the system cannot do it.
class ChildProcess {
 public:
  // Starts a program with this standard output. Its standard input is empty, and its standard error
  // is discarded. Signals that were ignored when this program was started stay ignored, as under
  // nohup(1), except those that `PrepareProcess` ignores.
  static ChildProcess StartIsolated(const std::vector<std::string>& command, int output);

  // Starts a program with the descriptors and the signal actions of this one.
  static ChildProcess StartInheriting(const std::vector<std::string>& command);

  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess();

  // True once the child is known to have ended; does not wait.
  bool HasEnded();

  // Waits for the child's end. Returns its exit status as sh(1) reports it: 128 plus the signal's
  // number for a child that a signal terminated. 0 for a child that the system no longer knows.
  int Wait();

  // Sends the signal to the child. Has no effect on a child that has ended.
  void Signal(int number) const;

 private:
  explicit ChildProcess(pid_t pid) : pid_(pid) {}
  void Reap(int options);

  pid_t pid_;
  bool ended_ = false;
  int status_ = 0;
};

}  // namespace hostsweep
