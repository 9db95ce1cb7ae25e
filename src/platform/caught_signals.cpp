#include "platform/caught_signals.h"

#include <fcntl.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signals, not in <csignal>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/process.h"

namespace hostsweep {
namespace {

// A handler gets nothing but the signal's number, so it finds the rest here.
int wakeDescriptor = -1;
std::array<volatile sig_atomic_t, 128> hasArrived{};  // more than any system has signals

extern "C" void NoteSignal(int number) {
  const int error = errno;
  hasArrived[static_cast<std::size_t>(number)] = 1;
  // A full pipe wakes the reader as well.
  [[maybe_unused]] const ssize_t written = write(wakeDescriptor, "", 1);
  errno = error;
}

}  // namespace

CaughtSignals::CaughtSignals(const std::vector<int>& numbers) : pipe_(OpenPipe()) {
  fcntl(pipe_.Reader.Number(), F_SETFL, O_NONBLOCK);
  fcntl(pipe_.Writer.Number(), F_SETFL, O_NONBLOCK);
  wakeDescriptor = pipe_.Writer.Number();
  struct sigaction action = {};
  action.sa_handler = NoteSignal;
  action.sa_flags = SA_RESTART | SA_NOCLDSTOP;
  for (const int number : numbers) {
    if (number != SIGCHLD && IsIgnored(number)) continue;
    hasArrived[static_cast<std::size_t>(number)] = 0;
    sigaction(number, &action, nullptr);
    caught_.push_back(number);
  }
}

CaughtSignals::~CaughtSignals() {
  for (const int number : caught_) signal(number, SIG_DFL);
}

bool CaughtSignals::Take(int number) {
  const auto index = static_cast<std::size_t>(number);
  if (hasArrived[index] == 0) return false;
  hasArrived[index] = 0;
  return true;
}

}  // namespace hostsweep
