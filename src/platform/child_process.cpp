#include "platform/child_process.h"

#include <fcntl.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signal sets, not in <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/exit_status.h"
#include "platform/pointers.h"
#include "platform/signals.h"
#include "platform/system_call.h"

// POSIX leaves the declaration to the program; some systems' headers have one too.
extern "C" char** environ;  // NOLINT(readability-redundant-declaration)

namespace hostsweep {
namespace {

// For functions that return an error number.
void Require(int error) {
  if (error != 0) throw std::system_error(error, std::generic_category(), "posix_spawn");
}

// The standard input, output and error of a child.
class StandardStreams {
 public:
  StandardStreams() { Require(posix_spawn_file_actions_init(&actions_)); }
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;
  ~StandardStreams() { posix_spawn_file_actions_destroy(&actions_); }

  void Set(int output) {
    Require(posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    Require(posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO));
    Require(posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0));
  }

  [[nodiscard]] const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// The signal actions of a child.
class SpawnAttributes {
 public:
  SpawnAttributes() { Require(posix_spawnattr_init(&attributes_)); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }

  // Gives the child the default action of the signals that `PrepareProcess` ignores.
  void Set() {
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

pid_t Spawn(const std::vector<std::string>& command, const posix_spawn_file_actions_t* streams,
            const posix_spawnattr_t* attributes) {
  pid_t pid = -1;
  Require(posix_spawn(&pid, command.front().c_str(), streams, attributes, Pointers(command).data(),
                      environ));
  return pid;
}

}  // namespace

ChildProcess ChildProcess::StartIsolated(const std::vector<std::string>& command, int output) {
  StandardStreams streams;
  streams.Set(output);
  SpawnAttributes attributes;
  attributes.Set();
  return ChildProcess(Spawn(command, streams.Get(), attributes.Get()));
}

ChildProcess ChildProcess::StartInheriting(const std::vector<std::string>& command) {
  return ChildProcess(Spawn(command, nullptr, nullptr));
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : pid_(other.pid_), ended_(std::exchange(other.ended_, true)), status_(other.status_) {}

ChildProcess::~ChildProcess() {
  Signal(SIGKILL);
  Wait();
}

bool ChildProcess::HasEnded() {
  Reap(WNOHANG);
  return ended_;
}

int ChildProcess::Wait() {
  Reap(0);
  return status_;
}

void ChildProcess::Signal(int number) const {
  if (!ended_) kill(pid_, number);
}

// Reaps the child if it has ended; `options`, those of waitpid(2), say whether to wait for that. A
// child that cannot be waited for no longer exists, and counts as ended.
void ChildProcess::Reap(int options) {
  if (ended_) return;
  int status = 0;
  const pid_t reaped = RetryInterrupted([&] { return waitpid(pid_, &status, options); });
  if (reaped == 0) return;
  ended_ = true;
  if (reaped == -1) return;
  status_ = WIFSIGNALED(status) ? ExitSignal + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace hostsweep
