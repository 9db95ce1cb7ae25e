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

#include "platform/environment.h"
#include "platform/exit_status.h"
#include "platform/pointers.h"
#include "platform/process.h"
#include "platform/system_call.h"

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
    if (output == ChildProcess::NoOutput) {
      Require(posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0));
    } else {
      Require(posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO));
    }
    Require(posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0));
  }

  [[nodiscard]] const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// The signal actions and the process group of a child.
class SpawnAttributes {
 public:
  SpawnAttributes() { Require(posix_spawnattr_init(&attributes_)); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }

  // Gives the child the default action of the signals that `PrepareProcess` ignores.
  void Set(ChildProcess::Group group) {
    sigset_t ignored;
    sigemptyset(&ignored);
    for (const int number : WriteSignals) sigaddset(&ignored, number);
    Require(posix_spawnattr_setsigdefault(&attributes_, &ignored));
    int flags = POSIX_SPAWN_SETSIGDEF;
    if (group == ChildProcess::Group::Own) {
      flags |= POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK;
      Require(posix_spawnattr_setpgroup(&attributes_, 0));
      BlockStops();
    }
    Require(posix_spawnattr_setflags(&attributes_, static_cast<short>(flags)));
  }

  [[nodiscard]] const posix_spawnattr_t* Get() const { return &attributes_; }

 private:
  // Until it has its own group, a terminal's suspend character would stop the child too, and with
  // it this program, which waits until the child has begun to run its program.
  void BlockStops() {
    sigset_t stops;
    sigemptyset(&stops);
    for (const int number : {SIGTSTP, SIGTTIN, SIGTTOU}) sigaddset(&stops, number);
    Require(posix_spawnattr_setsigmask(&attributes_, &stops));
  }

  posix_spawnattr_t attributes_{};
};

pid_t Spawn(const std::vector<std::string>& command, const std::vector<std::string>& environment,
            const posix_spawn_file_actions_t* streams, const posix_spawnattr_t* attributes) {
  pid_t pid = -1;
  Require(posix_spawn(&pid, command.front().c_str(), streams, attributes, Pointers(command).data(),
                      Pointers(environment).data()));
  return pid;
}

// The id of a child that has ended, which is not reaped; 0 if there is none, -1 if no such child is
// there.
pid_t Ended(idtype_t type, pid_t pid, int options) {
  siginfo_t child{};
  const int result = RetryInterrupted(
      [&] { return waitid(type, static_cast<id_t>(pid), &child, WEXITED | WNOWAIT | options); });
  return result == -1 ? -1 : child.si_pid;
}

}  // namespace

ChildProcess ChildProcess::StartIsolated(const std::vector<std::string>& command,
                                         const std::vector<std::string>& environment, int output,
                                         Group group) {
  StandardStreams streams;
  streams.Set(output);
  SpawnAttributes attributes;
  attributes.Set(group);
  return {Spawn(command, environment, streams.Get(), attributes.Get()), group};
}

ChildProcess ChildProcess::StartInheriting(const std::vector<std::string>& command) {
  return {Spawn(command, Environment(), nullptr, nullptr), Group::Inherited};
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : pid_(other.pid_),
      group_(other.group_),
      ended_(std::exchange(other.ended_, true)),
      wasKilled_(other.wasKilled_),
      status_(other.status_) {}

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
  if (!ended_) kill(group_ == Group::Own ? -pid_ : pid_, number);
}

// Reaps the child once it has ended, which `options` says whether to wait for. A child that cannot
// be waited for is no longer there, and counts as ended.
void ChildProcess::Reap(int options) {
  if (ended_) return;
  if (group_ == Group::Own) {
    // Until the child is reaped, no other process or group can get its number.
    const pid_t over = Ended(P_PID, pid_, options);
    if (over == 0) return;
    if (over > 0) Signal(SIGKILL);
  }
  int status = 0;
  const pid_t reaped = RetryInterrupted([&] { return waitpid(pid_, &status, options); });
  if (reaped == 0) return;
  ended_ = true;
  if (reaped == -1) return;
  wasKilled_ = WIFSIGNALED(status);
  status_ = wasKilled_ ? ExitSignal + WTERMSIG(status) : WEXITSTATUS(status);
}

void ReapChild(pid_t pid) {
  RetryInterrupted([&] { return waitpid(pid, nullptr, 0); });
}

pid_t EndedChild() { return std::max(Ended(P_ALL, 0, WNOHANG), 0); }

}  // namespace hostsweep
