#include "platform/line_eraser.h"

#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signals, not all in <csignal>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "platform/signals.h"
#include "platform/terminal.h"

namespace hostsweep {
namespace {

constexpr std::array<int, 4> Signals = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

// A handler gets nothing but the signal's number, so it finds the rest here.
constexpr std::size_t LongestLine = 256;
volatile sig_atomic_t lineWidth = 0;

// The signal has its default action again when this is called.
extern "C" void EraseAndEnd(int number) {
  std::array<char, LongestLine + 2> blanks{};
  blanks.fill(' ');
  const auto width = static_cast<std::size_t>(lineWidth);
  blanks[0] = '\r';
  blanks[width + 1] = '\r';
  if (width > 0 && CanWrite(StandardError)) {
    [[maybe_unused]] const ssize_t written = write(StandardError, blanks.data(), width + 2);
  }
  raise(number);
}

}  // namespace

LineEraser::LineEraser() {
  struct sigaction action = {};
  action.sa_handler = EraseAndEnd;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
  for (const int number : Signals) {
    if (!IsIgnored(number)) sigaction(number, &action, nullptr);
  }
}

LineEraser::~LineEraser() {
  for (const int number : Signals) {
    if (!IsIgnored(number)) signal(number, SIG_DFL);
  }
}

void LineEraser::SetWidth(std::size_t width) {
  lineWidth = static_cast<sig_atomic_t>(std::min(width, LongestLine));
}

}  // namespace hostsweep
