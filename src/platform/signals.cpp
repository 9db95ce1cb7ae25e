#include "platform/signals.h"

#include <unistd.h>

#include "platform/exit_status.h"

namespace hostsweep {

void IgnoreWriteSignals() {
  for (const int number : WriteSignals) signal(number, SIG_IGN);
}

bool IsIgnored(int signalNumber) {
  struct sigaction action = {};
  sigaction(signalNumber, nullptr, &action);
  return action.sa_handler == SIG_IGN;
}

void TerminateBy(int signalNumber) {
  signal(signalNumber, SIG_DFL);
  raise(signalNumber);
  _exit(ExitSignal + signalNumber);  // the status that a shell gives for the signal
}

}  // namespace hostsweep
