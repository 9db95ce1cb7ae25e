#include "network/plan.h"

#include <algorithm>

#include "platform/devices.h"
#include "platform/file.h"
#include "platform/program_path.h"
#include "platform/search_path.h"
#include "platform/tool_environment.h"
#include "platform/tools_directory.h"

namespace hostsweep {
namespace {

std::string NamesOf(const std::vector<Network>& networks) {
  const std::string& first = networks.front().Name;
  const std::size_t others = networks.size() - 1;
  if (others == 0) return first;
  return first + " and " + std::to_string(others) + " other" + (others > 1 ? "s" : "");
}

// True if there is a ping on the search path other than this program's own, which needs one.
bool HasPing() {
  const auto own = IdentifyFile(ToolsDirectory(ProgramPath()) + "/ping");
  const std::vector<std::string> paths = PathsOf(ToolSearchPath(), "ping");
  return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
    return IsProgram(path) && IdentifyFile(path) != own;
  });
}

// The networks of a sweep by what prevents or limits it.
struct Reach {
  std::vector<Network> Reachable;
  std::vector<Network> Beyond;  // of the reachable ones those that no device is on
  std::vector<Network> Unreachable;
  std::vector<Network> Down;
  std::string DeviceThatIsDown;  // of the first of those
};

// True if nothing says that any address of the network can be reached. Routes to parts of it that
// have neither its first nor its last address, nor a device, are not looked for.
bool IsUnreachable(const Network& network, const Neighbourhood& neighbourhood) {
  return !neighbourhood.HasPartOf(network) && !HasRoute(network.First) && !HasRoute(network.Last);
}

Reach ReachOf(const std::vector<Network>& networks, const Neighbourhood& neighbourhood) {
  Reach reach;
  for (const Network& network : networks) {
    const std::string device = neighbourhood.DeviceThatIsDown(network);
    if (!device.empty()) {
      if (reach.Down.empty()) reach.DeviceThatIsDown = device;
      reach.Down.push_back(network);
    } else if (IsUnreachable(network, neighbourhood)) {
      reach.Unreachable.push_back(network);
    } else {
      reach.Reachable.push_back(network);
      if (!neighbourhood.Has(network)) reach.Beyond.push_back(network);
    }
  }
  return reach;
}

// The networks that the options name.
std::vector<Network> NetworksOf(const Options& options, const Neighbourhood& neighbourhood,
                                std::vector<std::string>& notes) {
  if (!options.IsLocal) return options.Networks;
  std::vector<Network> leftOut;
  std::vector<Network> networks = neighbourhood.LocalNetworks(leftOut);
  if (!leftOut.empty()) {
    notes.push_back(
        NamesOf(leftOut) +
        ": left out, as larger than a /20; give it, or a part of at most a /16, as an argument");
  }
  if (networks.empty()) notes.emplace_back("no device of this machine is on a network to sweep");
  return networks;
}

void CheckReach(const Options& options, const Neighbourhood& neighbourhood, Plan& plan) {
  const Reach reach = ReachOf(plan.Networks, neighbourhood);
  if (!reach.Down.empty()) {
    plan.Notes.push_back(reach.DeviceThatIsDown + " is down: " + NamesOf(reach.Down) +
                         " cannot be swept; set the device up or connect its cable");
  }
  if (!reach.Unreachable.empty()) {
    plan.Notes.push_back("there is no route to " + NamesOf(reach.Unreachable) +
                         ", which cannot be swept; check the network devices and routes");
  }
  plan.IsComplete = plan.IsComplete && reach.Down.empty() && reach.Unreachable.empty();
  plan.Networks = reach.Reachable;
  if (reach.Beyond.empty()) return;
  plan.IsRefused = options.Report != Selection::All;
  plan.Notes.push_back(
      "no device of this machine is on all of " + NamesOf(reach.Beyond) +
      ": no hardware addresses beyond its own networks can be seen from here" +
      (plan.IsRefused ? ", so --up and --free cannot tell; use a machine there" : ""));
}

void CheckPrograms(Plan& plan) {
  plan.Available = {HasPing(), IsProgram("/usr/bin/host")};
  if (!plan.Available.HasPing) {
    plan.Notes.emplace_back(
        "there is no ping, so only hosts that are in the ARP cache already are seen; install "
        "iputils-ping (Debian) or iputils");
  }
  if (!plan.Available.HasHost) {
    plan.Notes.emplace_back(
        "there is no /usr/bin/host, so there are no names; install bind9-host (Debian), bind-utils "
        "(Fedora) or bind-tools (Alpine)");
  }
  plan.IsComplete = plan.IsComplete && plan.Available.HasPing && plan.Available.HasHost;
}

}  // namespace

Plan MakePlan(const Options& options, const Neighbourhood& neighbourhood) {
  Plan plan;
  plan.Networks = NetworksOf(options, neighbourhood, plan.Notes);
  CheckReach(options, neighbourhood, plan);
  if (!plan.IsRefused && !plan.Networks.empty()) CheckPrograms(plan);
  return plan;
}

}  // namespace hostsweep
