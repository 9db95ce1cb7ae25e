#include "network/plan/options.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "network/plan/decimal.h"
#include "network/plan/usage_error.h"

namespace hostsweep {
namespace {

constexpr int NoOption = 1;  // an argument that is not an option
// Options without a letter.
constexpr int FreeOption = 0x100;
constexpr int ChangesOption = 0x101;

// getopt_long(3) wants a last element of zeros.
constexpr std::array<option, 10> LongOptions = {
    {{"up", no_argument, nullptr, 'u'},
     {"free", no_argument, nullptr, FreeOption},
     {"format", required_argument, nullptr, 'f'},
     {"jobs", required_argument, nullptr, 'j'},
     {"local", no_argument, nullptr, 'l'},
     {"no-names", no_argument, nullptr, 'n'},
     {"changes", required_argument, nullptr, ChangesOption},
     {"help", no_argument, nullptr, 'h'},
     {"version", no_argument, nullptr, 'V'},
     {nullptr, 0, nullptr, 0}}};

// "-": arguments that are not options are returned where they stand. ":": nothing is printed.
constexpr const char* ShortOptions = "-:uf:j:lnhV";

// How many long options the name can mean: 1 if it is the whole name of an option.
int CountMeanings(std::string_view name) {
  int count = 0;
  for (const option& known : LongOptions) {
    if (known.name == nullptr) break;
    const std::string_view whole = known.name;
    if (whole == name) return 1;
    if (whole.substr(0, name.size()) == name) ++count;
  }
  return count;
}

// The error in a long option that getopt_long(3) has refused.
UsageError LongOptionError(const std::string& argument) {
  const std::size_t equals = argument.find('=');
  const std::string option = argument.substr(0, equals);
  const int meanings = CountMeanings(std::string_view(option).substr(2));
  if (meanings == 0) return {option, "no such option"};
  if (meanings > 1) return {option, "short for more than one option"};
  return {option,
          equals == std::string::npos ? "the option needs a value" : "the option takes no value"};
}

// The error in an argument of option letters, of which getopt_long(3) has refused this letter.
UsageError ShortOptionError(const std::string& argument, int letter) {
  const bool isAscii = letter > ' ' && letter <= '~';
  const std::string option = isAscii ? std::string("-") + static_cast<char>(letter) : argument;
  return {option, letter == 'f' || letter == 'j' ? "the option needs a value" : "no such option"};
}

Format ReadFormat(const std::string& value) {
  const std::optional<Format> format = ParseFormat(value);
  if (format) return *format;
  throw UsageError(value, "the format must be lines, table, csv, json or map");
}

std::uint32_t ReadJobs(const std::string& value) {
  const std::optional<std::uint32_t> jobs = ParseDecimal(value, MaximalJobs);
  if (jobs && *jobs > 0) return *jobs;
  throw UsageError(value, "the number of jobs must be from 1 to 1024");
}

std::string ReadFile(const std::string& value) {
  if (!value.empty()) return value;
  throw UsageError("--changes needs the name of a file");
}

void Select(Selection selection, Options& options) {
  if (options.Reported != Selection::All && options.Reported != selection) {
    throw UsageError("--up and --free cannot be combined");
  }
  options.Reported = selection;
}

// Applies one option, or an argument that is not an option.
void Apply(int option, Options& options, std::vector<std::string>& networks) {
  switch (option) {
    case NoOption:
      networks.emplace_back(optarg);
      return;
    case 'u':
      Select(Selection::Up, options);
      return;
    case FreeOption:
      Select(Selection::Free, options);
      return;
    case 'f':
      options.ReportFormat = ReadFormat(optarg);
      return;
    case 'j':
      options.Jobs = ReadJobs(optarg);
      return;
    case 'l':
      options.IsLocal = true;
      return;
    case 'n':
      options.UsesNames = false;
      return;
    case ChangesOption:
      options.ChangesFile = ReadFile(optarg);
      return;
    case 'h':
      options.Wanted = Task::PrintHelp;
      return;
    default:
      options.Wanted = Task::PrintVersion;
      return;
  }
}

// Changes are reported for all hosts, in a form of their own or in JSON.
void CheckChanges(const Options& options) {
  if (!options.ChangesFile) return;
  if (options.Reported != Selection::All) {
    throw UsageError("--changes cannot be combined with --up or --free");
  }
  if (options.ReportFormat.value_or(Format::Json) == Format::Json) return;
  throw UsageError("--changes cannot be combined with a format other than json");
}

void ReadNetworks(const std::vector<std::string>& networks, Options& options) {
  for (const std::string& network : networks) {
    if (IsNumeric(network)) {
      options.Networks.emplace_back(ParseNetwork(network));
    } else {
      options.Networks.emplace_back(DeviceArgument{network});
    }
  }
  if (options.IsLocal && !networks.empty()) {
    throw UsageError(networks.front(), "a network cannot be combined with --local");
  }
  options.IsLocal = networks.empty();
}

}  // namespace

Options ReadOptions(int argumentCount, char** arguments) {
  Options options;
  std::vector<std::string> networks;
  opterr = 0;
  optind = 0;  // begin again, even if an earlier call has stopped within an argument
  while (options.Wanted == Task::Sweep) {
    const int current = std::max(optind, 1);
    const int option =
        getopt_long(argumentCount, arguments, ShortOptions, LongOptions.data(), nullptr);
    if (option == -1) break;
    if (option == '?' || option == ':') {
      const std::string argument = arguments[current];
      throw argument.compare(0, 2, "--") == 0 ? LongOptionError(argument)
                                              : ShortOptionError(argument, optopt);
    }
    Apply(option, options, networks);
  }
  if (options.Wanted != Task::Sweep) return options;
  networks.insert(networks.end(), arguments + std::min(optind, argumentCount),
                  arguments + argumentCount);
  CheckChanges(options);
  ReadNetworks(networks, options);
  return options;
}

std::string UsageLine() { return "usage: hostsweep-network [OPTION...] [NETWORK...]"; }

std::string HelpText() {
  return UsageLine() + R"(

Sweeps IPv4 networks for the names, hardware addresses and makers of their
hosts. Needs no privileges.

NETWORK is one of the following. The default is --local.
  192.168.1                  its hosts 1 to 254
  10.50.1.9/22               the network that this address is in; /16 to /32
  192.168.1.7                one address
  192.168.1.20-90            a range of addresses
  192.168.1.20-192.168.2.90  a range of at most 65536 addresses
  eth0                       the networks of this device, of at most a /16 each

  -l, --local          sweep the networks that this machine is on, except those
                       larger than a /20
  -u, --up             report only hosts that are up: heard by ARP or by an
                       answer
      --free           report only addresses with neither a host nor a name, at
                       the end and only if the sweep is complete
  -f, --format FORMAT  a format below; default: table on a terminal, else lines
  -j, --jobs COUNT     sweep at most COUNT addresses at a time, 1 to )" +
         std::to_string(MaximalJobs) + R"(;
                       default: )" +
         std::to_string(DefaultJobs) + R"(
  -n, --no-names       report no names, and ask nobody for one
      --changes FILE   report only what has changed since the last sweep with
                       this FILE, and keep in it what was seen; cannot be
                       combined with --up, --free, or a format other than json
  -h, --help           print this help
  -V, --version        print the version and which list of makers is used

FORMAT is one of:
  lines  address=name=hardware address, a line for each address
  table  columns, for addresses with a host, a name or a hardware address
  csv    comma-separated values for every address: the columns, whether a host
         is up, and where its name comes from
  json   the same values, as an object on a line for each address
  map    a character for each address: "#" up, "+" only a name, "." free,
         "-" reserved, "?" not fully known

Exit status: 0 if every address was swept and every lookup had an answer; 1 if
not, or if the report could not be written, and standard error says why; 2 if an
argument cannot be used.
)";
}

}  // namespace hostsweep
