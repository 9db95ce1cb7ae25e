#include "network/run.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <system_error>

#include "app/version.h"
#include "network/changes/changes_file.h"
#include "network/plan/options.h"
#include "network/plan/plan.h"
#include "network/plan/usage_error.h"
#include "network/remark.h"
#include "network/report/makers.h"
#include "network/session.h"
#include "platform/console.h"
#include "platform/network/network_stack.h"
#include "platform/process.h"
#include "platform/signals.h"
#include "platform/text/printable.h"

namespace hostsweep {
namespace {

constexpr int Complete = 0;
constexpr int Incomplete = 1;
constexpr int WrongUsage = 2;

// The end of a program whose reader is gone: by SIGPIPE, unless the caller ignores it.
int EndWithoutReader(bool ignoresBrokenPipes) {
  if (!ignoresBrokenPipes) TerminateBy(SIGPIPE);
  return Incomplete;
}

// Writes the text to standard output.
int Show(const std::string& text) {
  if (std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0) return Complete;
  throw std::system_error(errno, std::generic_category(), "standard output");
}

// To be called after standard output has taken the changes: a change that is kept is not reported
// again.
void Keep(ChangesFile& changes) {
  changes.Keep();
  const std::string beginning = changes.BeginningInWords();
  if (!beginning.empty()) Remark(beginning);
}

int Sweep(const Options& options, bool ignoresBrokenPipes) {
  std::optional<ChangesFile> changes;
  if (options.ChangesFile) changes.emplace(options);
  NetworkStack stack;
  const Plan plan = MakePlan(options, stack);
  for (const std::string& note : plan.Notes) Remark(note);
  if (plan.IsRefused || plan.Networks.empty()) return Incomplete;
  const SessionEnd end = RunSession(options, plan, stack, changes ? &*changes : nullptr);
  if (end.IsReaderGone) return EndWithoutReader(ignoresBrokenPipes);
  if (!changes && !end.Summary.empty()) PrintError(end.Summary + "\n");
  for (const std::string& reason : end.Reasons) Remark(reason);
  if (end.Hint) Remark(*end.Hint);
  if (changes) Keep(*changes);
  return end.IsComplete ? Complete : Incomplete;
}

int Run(int argumentCount, char** arguments, bool ignoresBrokenPipes) {
  const Options options = ReadOptions(argumentCount, arguments);
  switch (options.Wanted) {
    case Task::PrintHelp:
      return Show(HelpText());
    case Task::PrintVersion:
      Show(std::string("hostsweep-network ") + ShortVersion + "\n");
      return Show("makers: " + Printable(Makers().Source()) + "\n");
    default:
      return Sweep(options, ignoresBrokenPipes);
  }
}

}  // namespace

int RunNetworkProgram(int argumentCount, char** arguments) {
  OpenStandardDescriptors();
  const bool ignoresBrokenPipes = IsIgnored(SIGPIPE);
  IgnoreWriteSignals();  // a name server can close a connection that is being written to
  try {
    return Run(argumentCount, arguments, ignoresBrokenPipes);
  } catch (const UsageError& error) {
    Remark(error.what());
    PrintError(UsageLine() + "\n");
    return WrongUsage;
  } catch (const std::system_error& error) {
    if (error.code() == std::errc::broken_pipe) return EndWithoutReader(ignoresBrokenPipes);
    Remark(error.what());
  } catch (const std::bad_alloc&) {
    Remark("there is not enough memory");
  } catch (const std::exception& error) {
    Remark(error.what());
  }
  return Incomplete;
}

}  // namespace hostsweep
