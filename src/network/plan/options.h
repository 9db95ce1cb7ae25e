// The command line of hostsweep-network.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "network/plan/network.h"
#include "network/plan/report_choices.h"

namespace hostsweep {

constexpr std::uint32_t DefaultJobs = 512;
constexpr std::uint32_t MaximalJobs = 1024;

// The task that the command line asks for.
enum class Task { Sweep, PrintHelp, PrintVersion };

// The name of a device, for its networks. Whether there is such a device is not checked here.
struct DeviceArgument {
  std::string Name;
};

struct Options {
  Task Wanted = Task::Sweep;
  Selection Reported = Selection::All;
  std::optional<Format> ReportFormat;  // nothing: the standard output decides
  std::uint32_t Jobs = DefaultJobs;    // addresses in work at a time, 1 to `MaximalJobs`
  bool UsesNames = true;               // false: nobody is asked for a name
  // Report what has changed since the sweeps that this file tells of. If it is set, it is not
  // empty, `Reported` is `All`, and `ReportFormat` is nothing or `Json`.
  std::optional<std::string> ChangesFile;
  // The networks, in the order given. If there are none, `IsLocal`: the networks that this machine
  // is on.
  std::vector<std::variant<Network, DeviceArgument>> Networks;
  bool IsLocal = false;
};

// Reads the arguments, of which the first is the program's path. Options and networks may be mixed;
// long options may be abbreviated. After --help or --version nothing more is read, and networks are
// not checked. Throws `UsageError`.
Options ReadOptions(int argumentCount, char** arguments);

// How the program is called, on one line without a line end.
std::string UsageLine();

// The text that --help prints.
std::string HelpText();

}  // namespace hostsweep
