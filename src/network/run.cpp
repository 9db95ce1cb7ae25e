#include "network/run.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <system_error>

#include "app/version.h"
#include "network/neighbourhood.h"
#include "network/options.h"
#include "network/plan.h"
#include "network/remark.h"
#include "network/session.h"
#include "network/usage_error.h"
#include "platform/console.h"
#include "platform/devices.h"
#include "platform/process.h"

namespace hostsweep {
namespace {

constexpr int Incomplete = 1;
constexpr int WrongUsage = 2;

// Writes the text to standard output.
int Show(const std::string& text) {
  if (std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0) return 0;
  throw std::system_error(errno, std::generic_category(), "standard output");
}

int Sweep(const Options& options, bool ignoresBrokenPipes) {
  const Neighbourhood neighbourhood(DeviceAddresses());
  const Plan plan = MakePlan(options, neighbourhood);
  for (const std::string& note : plan.Notes) Remark(note);
  if (plan.IsRefused || plan.Networks.empty()) return Incomplete;
  const SessionEnd end = RunSession(options, plan, neighbourhood);
  if (!end.Summary.empty()) PrintError(end.Summary + "\n");
  for (const std::string& reason : end.Reasons) Remark(reason);
  if (!end.Signal || (*end.Signal == SIGPIPE && ignoresBrokenPipes)) return end.Status;
  TerminateBy(*end.Signal);
}

int Run(int argumentCount, char** arguments, bool ignoresBrokenPipes) {
  const Options options = ReadOptions(argumentCount, arguments);
  switch (options.Wanted) {
    case Task::PrintHelp:
      return Show(HelpText());
    case Task::PrintVersion:
      return Show(std::string("hostsweep-network ") + ShortVersion + "\n");
    default:
      return Sweep(options, ignoresBrokenPipes);
  }
}

}  // namespace

int RunNetworkProgram(int argumentCount, char** arguments) {
  const bool ignoresBrokenPipes = IsIgnored(SIGPIPE);
  PrepareProcess();
  try {
    return Run(argumentCount, arguments, ignoresBrokenPipes);
  } catch (const UsageError& error) {
    Remark(error.what());
    PrintError(UsageLine() + "\n");
    return WrongUsage;
  } catch (const std::exception& error) {
    Remark(error.what());
    return Incomplete;
  }
}

}  // namespace hostsweep
