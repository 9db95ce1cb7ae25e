#include "platform/child_process.h"

#include <fcntl.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signal sets, not in <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "platform/environment.h"
#include "platform/exceptions.h"
#include "platform/pointers.h"
#include "platform/process.h"

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

// What signals do to the child: the default for those that `PrepareProcess` ignores.
class SignalActions {
 public:
  SignalActions() { Require(posix_spawnattr_init(&attributes_)); }
  SignalActions(const SignalActions&) = delete;
  SignalActions& operator=(const SignalActions&) = delete;
  ~SignalActions() { posix_spawnattr_destroy(&attributes_); }

  void Reset() {
    sigset_t ignored;
    sigemptyset(&ignored);
    for (const int number : WriteSignals) sigaddset(&ignored, number);
    Require(posix_spawnattr_setsigdefault(&attributes_, &ignored));
    Require(posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF));
  }

  [[nodiscard]] const posix_spawnattr_t* Get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

pid_t Spawn(const std::vector<std::string>& command, const std::vector<std::string>& environment,
            const posix_spawn_file_actions_t* streams, const posix_spawnattr_t* attributes) {
  pid_t pid = -1;
  Require(posix_spawn(&pid, command.front().c_str(), streams, attributes, Pointers(command).data(),
                      Pointers(environment).data()));
  return pid;
}

}  // namespace

ChildProcess ChildProcess::Apart(const std::vector<std::string>& command,
                                 const std::vector<std::string>& environment, int output) {
  StandardStreams streams;
  streams.CollectIn(output);
  SignalActions signals;
  signals.Reset();
  return ChildProcess(Spawn(command, environment, streams.Get(), signals.Get()));
}

ChildProcess ChildProcess::Sharing(const std::vector<std::string>& command) {
  return ChildProcess(Spawn(command, Environment(), nullptr, nullptr));
}

ChildProcess::~ChildProcess() {
  Kill();
  Wait();
}

bool ChildProcess::HasEnded() {
  if (!ended_) Reap(WNOHANG);
  return ended_;
}

int ChildProcess::Wait() {
  while (!ended_) {
    // A child that cannot be waited for is no longer there.
    if (Reap(0) == -1 && errno != EINTR) ended_ = true;
  }
  return status_;
}

void ChildProcess::Kill() const {
  if (!ended_) kill(pid_, SIGKILL);
}

pid_t ChildProcess::Reap(int options) {
  int status = 0;
  const pid_t reaped = waitpid(pid_, &status, options);
  if (reaped > 0) {
    ended_ = true;
    status_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  }
  return reaped;
}

}  // namespace hostsweep
