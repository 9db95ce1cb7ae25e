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
// `command` is the program's path followed by its arguments. Starting throws `std::system_error` if
// the system cannot do it.
class ChildProcess {
 public:
  // The process group that a child is in: this program's, which a terminal's signals reach, or one
  // of its own, which is signalled as a whole and ends with the child. In one of its own a
  // terminal's stop signals are blocked; SIGSTOP stops it.
  enum class Group { Inherited, Own };

  // Given as `output`, discards the standard output.
  static constexpr int NoOutput = -1;

  // Starts a program with this environment (elements "NAME=value") and standard output. Its
  // standard input is empty, its standard error is discarded, and it ignores the signals that the
  // caller of this program had it ignore, as under nohup(1), but not those that `PrepareProcess`
  // ignores.
  static ChildProcess StartIsolated(const std::vector<std::string>& command,
                                    const std::vector<std::string>& environment, int output,
                                    Group group);

  // Starts a program with the environment, the descriptors, the signal actions and the process
  // group of this one.
  static ChildProcess StartInheriting(const std::vector<std::string>& command);

  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess();

  [[nodiscard]] pid_t Id() const { return pid_; }

  // True once the child is known to have ended; does not wait.
  bool HasEnded();

  // Returns when the child has ended. Gives its exit status as sh(1) reports it: 128 and the
  // signal's number for a child that a signal terminated, and 0 for one that the system no longer
  // knows.
  int Wait();

  // True if it is a signal that has terminated the child.
  [[nodiscard]] bool WasKilled() const { return wasKilled_; }

  // Sends the signal to the child, or to its group if it has its own. Has no effect on a child that
  // has ended.
  void Signal(int number) const;

 private:
  ChildProcess(pid_t pid, Group group) : pid_(pid), group_(group) {}
  void Reap(int options);

  pid_t pid_;
  Group group_;
  bool ended_ = false;
  bool wasKilled_ = false;
  int status_ = 0;
};

// The process id of a child of this program that has ended and has not been reaped; 0 if there is
// none. Which of several it is, is not specified.
pid_t EndedChild();

// Reaps a child that has ended and that no `ChildProcess` stands for, such as one that was started
// before this program took the place of another.
void ReapChild(pid_t pid);

}  // namespace hostsweep
