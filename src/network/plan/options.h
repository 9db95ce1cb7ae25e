// The command line of hostsweep-network.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "network/plan/network.h"
#include "network/plan/report_choices.h"

namespace hostsweep {

constexpr std::uint32_t DefaultJobs = 512;
constexpr std::uint32_t MaximalJobs = 1024;

// The task that the command line asks for.
enum class Task { Sweep, PrintHelp, PrintVersion };

struct Options {
  Task Wanted = Task::Sweep;
  Selection Reported = Selection::All;
  std::optional<Format> ReportFormat;      // nothing: the standard output decides
  std::uint32_t Jobs = DefaultJobs;        // addresses in work at a time, 1 to `MaximalJobs`
  bool UsesNames = true;                   // false: nobody is asked for a name
  std::optional<std::string> ChangesFile;  // report what differs from this file; not empty. Then
                                           // all addresses, and the format json or none
  bool IsLocal = false;                    // sweep the networks that this machine is on
  std::vector<Network> Networks;           // as they were given; empty if `IsLocal`
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
