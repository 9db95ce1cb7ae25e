#include "platform/child_process.h"

#include <fcntl.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signal sets, not in <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "platform/exceptions.h"

namespace hostsweep {
namespace {

void Require(int error) {
  if (error != 0) throw ShellNotAvailableException();
}

// What the child gets as standard input, output and error.
class StandardStreams {
 public:
  StandardStreams() { Require(posix_spawn_file_actions_init(&actions_)); }
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;
  ~StandardStreams() { posix_spawn_file_actions_destroy(&actions_); }

  void CollectIn(int output) {
    Require(posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    Require(posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO));
    Require(posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0));
  }

  [[nodiscard]] const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// How the child takes signals.
class SignalState {
 public:
  SignalState() { Require(posix_spawnattr_init(&attributes_)); }
  SignalState(const SignalState&) = delete;
  SignalState& operator=(const SignalState&) = delete;
  ~SignalState() { posix_spawnattr_destroy(&attributes_); }

  void Reset() {
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    sigdelset(&all, SIGKILL);  // these two are always at their default, and POSIX lets a system
    sigdelset(&all, SIGSTOP);  // refuse to set it
    Require(posix_spawnattr_setsigmask(&attributes_, &none));
    Require(posix_spawnattr_setsigdefault(&attributes_, &all));
    Require(posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
  }

  [[nodiscard]] const posix_spawnattr_t* Get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

// The array of pointers that POSIX takes for a list of strings; valid as long as the strings are.
std::vector<char*> Pointers(const std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  // POSIX's type lacks a const, but promises that the strings are not changed.
  for (const std::string& string : strings) pointers.push_back(const_cast<char*>(string.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

ChildProcess::ChildProcess(const std::string& command, const std::vector<std::string>& environment,
                           int output) {
  StandardStreams streams;
  streams.CollectIn(output);
  SignalState signals;
  signals.Reset();
  const std::vector<std::string> arguments = {"sh", "-c", command};
  Require(posix_spawn(&pid_, "/bin/sh", streams.Get(), signals.Get(), Pointers(arguments).data(),
                      Pointers(environment).data()));
}

ChildProcess::~ChildProcess() {
  if (ended_) return;
  kill(pid_, SIGKILL);
  Wait();
}

bool ChildProcess::HasEnded() {
  // -1 means that the child is known to have ended: a caller that ignores SIGCHLD has had it
  // reaped.
  if (!ended_) ended_ = waitpid(pid_, nullptr, WNOHANG) != 0;
  return ended_;
}

void ChildProcess::Wait() {
  while (!ended_) ended_ = waitpid(pid_, nullptr, 0) != -1 || errno != EINTR;
}

}  // namespace hostsweep
