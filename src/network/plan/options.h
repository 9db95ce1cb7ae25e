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

// The name of a device, whose networks are meant. Whether there is such a device is not checked
// here.
struct DeviceArgument {
  std::string Name;
};

struct Options {
  Task Wanted = Task::Sweep;
  Selection Reported = Selection::All;
  std::optional<Format> ReportFormat;  // nothing: the standard output decides
  std::uint32_t Jobs = DefaultJobs;    // addresses in work at a time, 1 to `MaximalJobs`
  bool UsesNames = true;               // false: nobody is asked for a name
  // Report what has changed since the sweep that this file tells of. Its name is not empty, and
  // all addresses are reported, with no format chosen or `Format::Json`.
  std::optional<std::string> ChangesFile;
  // The networks as they were given. Without any, `IsLocal`: those that this machine is on.
  std::vector<std::variant<Network, DeviceArgument>> Networks;
  bool IsLocal = false;
};

// Reads the arguments, of which the first is the program's path. Options and networks may be mixed;
// long options may be abbreviated. --help and --version take effect when they are met: what follows
// them is not read, and networks are not checked. Throws `UsageError`.
Options ReadOptions(int argumentCount, char** arguments);

// How the program is called, on one line without a line end.
std::string UsageLine();

// The text that --help prints.
std::string HelpText();

}  // namespace hostsweep
