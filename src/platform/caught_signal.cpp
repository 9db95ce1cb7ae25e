#include "platform/caught_signal.h"

#include <fcntl.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signals, not in <csignal>
#include <unistd.h>

#include <cerrno>

namespace hostsweep {
namespace {

// A handler gets nothing but the signal's number, so it finds the rest here.
int wakeDescriptor = -1;

extern "C" void WakeReader(int /*number*/) {
  const int error = errno;
  // A full pipe wakes the reader as well.
  [[maybe_unused]] const ssize_t written = write(wakeDescriptor, "", 1);
  errno = error;
}

}  // namespace

CaughtSignal::CaughtSignal(int number) : pipe_(OpenPipe()), number_(number) {
  fcntl(pipe_.Reader.Number(), F_SETFL, O_NONBLOCK);
  fcntl(pipe_.Writer.Number(), F_SETFL, O_NONBLOCK);
  wakeDescriptor = pipe_.Writer.Number();
  struct sigaction action = {};
  action.sa_handler = WakeReader;
  action.sa_flags = SA_RESTART | SA_NOCLDSTOP;
  sigaction(number, &action, nullptr);
}

CaughtSignal::~CaughtSignal() { signal(number_, SIG_DFL); }

}  // namespace hostsweep
