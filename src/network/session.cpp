#include "network/session.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <system_error>
#include <vector>

#include "network/format.h"
#include "network/progress.h"
#include "network/report.h"
#include "network/sweeper.h"
#include "platform/caught_signals.h"
#include "platform/command_set.h"
#include "platform/events.h"
#include "platform/process.h"
#include "platform/terminal.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;

std::vector<int> SignalsToCatch() {
  std::vector<int> numbers(TerminatingSignals.begin(), TerminatingSignals.end());
  numbers.insert(numbers.end(), {SIGTSTP, SIGCHLD});
  return numbers;
}

Format FormatOf(const Options& options) {
  const bool isSeen = KindOf(StandardOutput) == FileKind::Terminal;
  return options.Output.value_or(isSeen ? Format::Table : Format::Lines);
}

Layout LayoutOf(const Options& options) {
  constexpr std::uint32_t WideRow = 64;
  constexpr int WideColumns = 16 + WideRow;  // with the label
  Layout layout;
  layout.Report = options.Report;
  layout.IsForTerminal = KindOf(StandardOutput) == FileKind::Terminal;
  if (layout.IsForTerminal && ColumnsOf(StandardOutput) >= WideColumns) layout.MapWidth = WideRow;
  return layout;
}

bool ShowsProgress() {
  return KindOf(StandardError) == FileKind::Terminal && KindOf(StandardOutput) != FileKind::Pipe;
}

std::uint64_t CountAll(const std::vector<Network>& networks) {
  std::uint64_t count = 0;
  for (const Network& network : networks) count += CountAddresses(network);
  return count;
}

class Session {
 public:
  Session(const Options& options, const Plan& plan, const Neighbourhood& neighbourhood)
      : isPlanComplete_(plan.IsComplete),
        total_(CountAll(plan.Networks)),
        signals_(SignalsToCatch()),
        sweeper_(plan.Networks, options.Jobs, plan.Available, neighbourhood, commands_),
        report_(plan.Networks, FormatOf(options), LayoutOf(options)),
        progress_(ShowsProgress(), total_) {}

  SessionEnd Run() {
    for (;;) {
      sweeper_.Start(Clock::now(), MayBegin());
      PassFindings();
      if (!Write()) return {SIGPIPE, 1, {}, {}};
      if (isReported_ && report_.Output().Size() == 0 && !report_.AddFree()) return Finish();
      if (!Wait()) return {SIGPIPE, 1, {}, {}};
      if (const std::optional<int> signal = HandleSignals()) return {signal, 1, {}, {}};
      for (const CommandSet::Result& result : commands_.TakeEnded()) {
        sweeper_.Take(result, Clock::now());
      }
    }
  }

 private:
  [[nodiscard]] bool IsComplete() const { return isPlanComplete_ && sweeper_.Troubles().IsEmpty(); }

  // A reader that is slow delays new addresses, so that what waits for it stays small.
  [[nodiscard]] bool MayBegin() {
    constexpr std::size_t LargeOutput = 1U << 16U;
    return report_.Output().Size() < LargeOutput;
  }

  void PassFindings() {
    while (const std::optional<Finding> finding = sweeper_.Next()) report_.Add(*finding);
    if (isReported_ || !sweeper_.IsDone()) return;
    report_.End(IsComplete());
    isReported_ = true;
  }

  // Returns false if the reader of standard output is gone.
  bool Write() {
    OutputQueue& output = report_.Output();
    if (output.Size() > 0) progress_.TryErase();
    try {
      output.Write();
    } catch (const std::system_error& error) {
      if (error.code() != std::errc::broken_pipe) throw;
      return false;
    }
    // The line is not drawn between the parts of a longer one.
    if (output.Size() == 0) progress_.Show(sweeper_.DoneCount(), Clock::now());
    return true;
  }

  // Waits for the next event. Returns false if the reader of standard output is gone.
  bool Wait() {
    std::optional<Clock::time_point> time = sweeper_.WakeTime(MayBegin());
    const bool hasOutput = report_.Output().Size() > 0;
    if (progress_.IsEnabled() && !hasOutput) {
      time = std::min(time.value_or(progress_.NextTime()), progress_.NextTime());
    }
    std::optional<milliseconds> rest;
    if (time) {
      rest = std::max(std::chrono::ceil<milliseconds>(*time - Clock::now()), milliseconds(0));
    }
    return WaitForEvents(commands_, signals_,
                         hasOutput ? OutputState::Wanted : OutputState::Watched, rest);
  }

  // Stops everything if that is asked for. Returns the signal that terminates the program, if one
  // has arrived.
  std::optional<int> HandleSignals() {
    for (const int number : TerminatingSignals) {
      if (CaughtSignals::Take(number)) return number;
    }
    if (CaughtSignals::Take(SIGTSTP)) {
      progress_.TryErase();
      commands_.Signal(SIGSTOP);
      StopProcess();
      commands_.Signal(SIGCONT);
    }
    return {};
  }

  [[nodiscard]] SessionEnd Finish() const {
    const auto time = std::chrono::duration_cast<milliseconds>(Clock::now() - begin_);
    return {{},
            IsComplete() ? 0 : 1,
            progress_.IsEnabled() ? report_.Summary(time) : "",
            sweeper_.Troubles().Describe(total_)};
  }

  bool isPlanComplete_;
  std::uint64_t total_;
  Clock::time_point begin_ = Clock::now();
  CaughtSignals signals_;
  CommandSet commands_;
  Sweeper sweeper_;
  Report report_;
  bool isReported_ = false;
  Progress progress_;
};

}  // namespace

SessionEnd RunSession(const Options& options, const Plan& plan,
                      const Neighbourhood& neighbourhood) {
  return Session(options, plan, neighbourhood).Run();
}

}  // namespace hostsweep
