#include "network/session.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>
#include <system_error>

#include "network/changes/changes_formatter.h"
#include "network/engine/sweeper.h"
#include "network/report/format.h"
#include "network/report/isolation.h"
#include "network/report/makers.h"
#include "network/report/progress.h"
#include "network/report/report_writer.h"
#include "platform/clock.h"
#include "platform/poll.h"
#include "platform/terminal.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;

Format FormatOf(const Options& options) {
  const bool isSeen = KindOf(StandardOutput) == FileKind::Terminal;
  return options.ReportFormat.value_or(isSeen ? Format::Table : Format::Lines);
}

Layout LayoutOf(const Options& options) {
  constexpr std::uint32_t WideRow = 64;
  constexpr int WideColumns = 16 + WideRow;  // with the label
  Layout layout;
  layout.Reported = options.Reported;
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
  Session(const Options& options, const Plan& plan, NetworkStack& stack, ChangesFile* changes)
      : leavesOut_(plan.LeavesOut),
        total_(CountAll(plan.Networks)),
        sweeper_(plan.Networks, options.Jobs, options.UsesNames, stack),
        report_(plan.Networks, options.Reported,
                changes != nullptr ? MakeChangesFormatter(*changes)
                                   : MakeFormatter(FormatOf(options), LayoutOf(options), makers_)),
        progress_(ShowsProgress(), total_, options.Jobs) {
    const bool isTable = FormatOf(options) == Format::Table && !options.ChangesFile;
    if (isTable && options.IsLocal) isolation_.emplace(stack);
  }

  SessionEnd Run() {
    for (;;) {
      const Clock::time_point now = Clock::now();
      sweeper_.Proceed(watched_, now, MayBegin());
      PassFindings();
      if (!Write(now)) return ReaderGone();
      const bool isWritten = report_.Pending().Size() == 0;
      if (isReported_ && isWritten && !report_.AddFree()) return Finish(now);
      if (!Wait(now)) return ReaderGone();
    }
  }

 private:
  [[nodiscard]] bool IsComplete() const { return !leavesOut_ && sweeper_.Troubles().AreNone(); }

  // A reader that is slow delays new addresses, so that what waits for it stays small.
  [[nodiscard]] bool MayBegin() const {
    constexpr std::size_t LargeOutput = 1U << 16U;
    return report_.Pending().Size() < LargeOutput;
  }

  void PassFindings() {
    while (const std::optional<Finding> finding = sweeper_.Next()) {
      report_.Add(*finding);
      if (isolation_) isolation_->Add(*finding);
    }
    if (isReported_ || !sweeper_.IsDone()) return;
    report_.End(IsComplete());
    isReported_ = true;
  }

  // Returns false if the reader of standard output is gone.
  bool Write(Clock::time_point now) {
    OutputQueue& pending = report_.Pending();
    if (pending.Size() > 0) progress_.Erase();
    try {
      pending.Write();
    } catch (const std::system_error& error) {
      if (error.code() != std::errc::broken_pipe) throw;
      return false;
    }
    // The progress line would split a line of the report that is written only in part.
    if (pending.Size() == 0) progress_.Show(sweeper_.DoneCount(), now);
    return true;
  }

  // Waits for the next event. Returns false if the reader of standard output is gone.
  bool Wait(Clock::time_point now) {
    // Only a pipe can lose its reader. macOS's poll(2) knows no terminals, so a full terminal is
    // tried again later.
    constexpr milliseconds TerminalInterval(20);
    const bool isPipe = KindOf(StandardOutput) == FileKind::Pipe;
    const bool hasOutput = report_.Pending().Size() > 0;
    std::optional<Clock::time_point> next = sweeper_.NextTime(now, MayBegin());
    const auto wakeAt = [&](Clock::time_point time) { next = std::min(next.value_or(time), time); };
    if (progress_.IsEnabled() && !hasOutput) wakeAt(progress_.NextTime());
    if (hasOutput && !isPipe) wakeAt(now + TerminalInterval);
    watched_.clear();
    watched_.push_back({isPipe ? StandardOutput : -1, false, hasOutput});
    sweeper_.Watch(watched_);
    std::optional<milliseconds> rest;
    if (next) rest = std::max(std::chrono::ceil<milliseconds>(*next - now), milliseconds(0));
    WaitFor(watched_, rest);
    return !watched_.front().IsBroken;
  }

  static SessionEnd ReaderGone() {
    SessionEnd end;
    end.IsReaderGone = true;
    return end;
  }

  [[nodiscard]] SessionEnd Finish(Clock::time_point now) const {
    SessionEnd end;
    end.IsComplete = IsComplete();
    const auto time = std::chrono::duration_cast<milliseconds>(now - begin_);
    if (progress_.IsEnabled()) end.Summary = report_.Summary(time);
    end.Reasons = sweeper_.Troubles().Describe(total_);
    if (isolation_) end.Hint = isolation_->Describe();
    return end;
  }

  bool leavesOut_;
  std::uint64_t total_;
  Clock::time_point begin_ = Clock::now();
  Sweeper sweeper_;
  Makers makers_;
  ReportWriter report_;
  std::optional<Isolation> isolation_;  // only for a table of the local networks
  bool isReported_ = false;
  Progress progress_;
  std::vector<Watched> watched_;
};

}  // namespace

SessionEnd RunSession(const Options& options, const Plan& plan, NetworkStack& stack,
                      ChangesFile* changes) {
  return Session(options, plan, stack, changes).Run();
}

}  // namespace hostsweep
