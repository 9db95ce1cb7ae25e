#include "network/plan/plan.h"

#include <algorithm>
#include <map>

#include "network/plan/usage_error.h"

namespace hostsweep {
namespace {

bool IsNamed(const std::vector<Network>& networks, const std::string& name) {
  return std::any_of(networks.begin(), networks.end(),
                     [&](const Network& network) { return network.Name == name; });
}

void AddOnce(std::vector<Network>& networks, const Network& network) {
  if (!IsNamed(networks, network.Name)) networks.push_back(network);
}

// "A", or "A and 2 others".
std::string NamesOf(const std::vector<Network>& networks) {
  const std::string& first = networks.front().Name;
  const std::size_t others = networks.size() - 1;
  if (others == 0) return first;
  return first + " and " + std::to_string(others) + " other" + (others > 1 ? "s" : "");
}

std::string NotSweptNote(const std::vector<Network>& networks, const std::string& reason) {
  return NamesOf(networks) + (networks.size() == 1 ? " is" : " are") + " not swept: " + reason;
}

std::string DownNote(const std::string& device, const std::vector<Network>& networks) {
  return NotSweptNote(networks, device + " is down; set the device up or connect its cable");
}

// The networks that were asked for, by whether they can be swept.
struct Reach {
  std::vector<Network> Reachable;
  std::vector<Network> Beyond;  // reachable, with addresses that ARP does not reach
  std::vector<Network> Unreachable;
  std::vector<Network> Down;
  std::string DeviceThatIsDown;  // the device of the first network that is down
};

// The ways to the addresses of one network. Each member tells of at least one address.
struct Ways {
  bool LeadToHosts = false;    // a host can have the address, and can be reached
  bool LeadBeyond = false;     // the same, but ARP does not reach the address
  bool LeadElsewhere = false;  // the address is this machine's own, or reserved
  int DeviceDown = 0;          // the way leads to this device, which has no link; 0 for none
};

class ReachFinder {
 public:
  explicit ReachFinder(NetworkStack& stack) : stack_(stack) {}

  Reach Find(const std::vector<Network>& networks) {
    for (const Network& network : networks) Add(network);
    return reach_;
  }

 private:
  void Add(const Network& network) {
    const Ways ways = WaysTo(network);
    std::string down;
    if (!ways.LeadToHosts && ways.DeviceDown != 0) down = DeviceName(ways.DeviceDown);
    if (!ways.LeadToHosts || ways.LeadBeyond) down = down.empty() ? DeviceOff(network) : down;
    if (!down.empty()) {
      if (reach_.Down.empty()) reach_.DeviceThatIsDown = down;
      AddOnce(reach_.Down, network);
    } else if (!ways.LeadToHosts && !ways.LeadElsewhere) {
      AddOnce(reach_.Unreachable, network);
    } else {
      reach_.Reachable.push_back(network);
      if (ways.LeadBeyond) AddOnce(reach_.Beyond, network);
    }
  }

  // Asks address by address, since parts of a network can lead elsewhere, up to the first address
  // that decides everything.
  Ways WaysTo(const Network& network) {
    Ways ways;
    for (std::uint64_t address = network.First; address <= network.Last; ++address) {
      const Route route = stack_.RouteTo(static_cast<std::uint32_t>(address));
      const bool isDirect = route.Leads == Route::Kind::Direct;
      if (route.Leads == Route::Kind::None) continue;
      if (isDirect && !IsUp(route.Device)) {
        ways.DeviceDown = route.Device;
      } else if (isDirect || route.Leads == Route::Kind::Beyond) {
        ways.LeadToHosts = true;
        ways.LeadBeyond =
            ways.LeadBeyond || (!isDirect && !IsLocal(static_cast<std::uint32_t>(address)));
      } else {
        ways.LeadElsewhere = true;
      }
      if (ways.LeadBeyond) break;
    }
    return ways;
  }

  [[nodiscard]] bool IsLocal(std::uint32_t address) const {
    return std::any_of(stack_.Devices().begin(), stack_.Devices().end(), [&](const auto& device) {
      return device.UsesArp && device.IsUp && IsInNetwork(device, address);
    });
  }

  bool IsUp(int device) {
    const auto known = isUp_.find(device);
    if (known != isUp_.end()) return known->second;
    return isUp_[device] = stack_.LinkOf(device).IsUp;
  }

  // The name of a device that is down and is on the whole network; empty if there is none, or if a
  // device that is up is on the whole network as well. The routes to a device that is down are
  // gone, so the way that is left can lead to another network with the same addresses.
  [[nodiscard]] std::string DeviceOff(const Network& network) const {
    std::string name;
    for (const DeviceAddress& device : stack_.Devices()) {
      const bool isWhole = IsInNetwork(device, network.First) && IsInNetwork(device, network.Last);
      if (!device.UsesArp || !isWhole) continue;
      if (device.IsUp) return {};
      if (name.empty()) name = device.Device;
    }
    return name;
  }

  NetworkStack& stack_;
  Reach reach_;
  std::map<int, bool> isUp_;
};

// The networks of the device that can be swept. A device that is down has none, even if another
// device leads to the same networks, since the user means this device.
std::vector<Network> NetworksOf(const DeviceArgument& argument, const NetworkStack& stack,
                                Plan& plan) {
  const int index = DeviceIndex(argument.Name);
  if (index == 0) {
    const std::string reason = "no device has this name, and it is not a network like ";
    throw UsageError(argument.Name, reason + NetworkExamples);
  }
  std::vector<Network> networks;
  std::vector<Network> down;
  std::vector<Network> large;
  for (const DeviceAddress& device : stack.Devices()) {
    if (device.Index != index) continue;
    const Network network = NetworkOf(device.Network, device.PrefixLength);
    if (!device.IsUp) {
      AddOnce(down, network);
    } else {
      AddOnce(device.PrefixLength < ShortestPrefix ? large : networks, network);
    }
  }
  if (networks.empty() && down.empty() && large.empty()) {
    plan.Notes.push_back(argument.Name +
                         " has no IPv4 address, so its networks are not known; give a network");
  }
  if (!down.empty()) plan.Notes.push_back(DownNote(argument.Name, down));
  if (!large.empty()) {
    plan.Notes.push_back(
        NotSweptNote(large, "larger than a /16; give a part of it as an argument"));
  }
  plan.LeavesOut = plan.LeavesOut || networks.empty() || !down.empty() || !large.empty();
  return networks;
}

std::vector<Network> NamedNetworks(const Options& options, const NetworkStack& stack, Plan& plan) {
  std::vector<Network> networks;
  for (const auto& argument : options.Networks) {
    if (const auto* const network = std::get_if<Network>(&argument)) {
      networks.push_back(*network);
    } else {
      for (const Network& own : NetworksOf(std::get<DeviceArgument>(argument), stack, plan)) {
        networks.push_back(own);
      }
    }
  }
  return networks;
}

// The networks that the options ask for.
std::vector<Network> NetworksOf(const Options& options, const NetworkStack& stack, Plan& plan) {
  if (!options.IsLocal) return NamedNetworks(options, stack, plan);
  std::vector<Network> leftOut;
  std::vector<Network> networks = LocalNetworks(stack.Devices(), leftOut);
  if (!leftOut.empty() && (networks.empty() || !options.ChangesFile)) {
    plan.Notes.push_back(NotSweptNote(
        leftOut, "larger than a /20; give it, or a part of at most a /16, as an argument"));
  }
  if (networks.empty()) {
    plan.Notes.emplace_back(leftOut.empty() ? "this machine is on no local network"
                                            : OwnNetworkHint);
  }
  return networks;
}

void NoteBeyond(const Options& options, const std::vector<Network>& beyond, Plan& plan) {
  plan.IsRefused = options.Reported == Selection::Free;
  std::string note = "ARP does not reach all of " + NamesOf(beyond) + ": ";
  if (plan.IsRefused) {
    note += "where it does not, --free cannot tell silent hosts from free addresses; ";
    note += "use a machine there";
  } else if (options.Reported == Selection::Up) {
    note += "where it does not, silent hosts are not found";
  } else {
    note += "where it does not, only hosts that answer are found, without hardware addresses";
  }
  plan.Notes.push_back(note);
}

}  // namespace

std::vector<Network> LocalNetworks(const std::vector<DeviceAddress>& devices,
                                   std::vector<Network>& leftOut) {
  constexpr std::uint32_t ShortestLocalPrefix = 20;
  std::vector<Network> networks;
  for (const DeviceAddress& device : devices) {
    if (!device.IsUp || !device.UsesArp) continue;
    AddOnce(device.PrefixLength < ShortestLocalPrefix ? leftOut : networks,
            NetworkOf(device.Network, device.PrefixLength));
  }
  return networks;
}

Plan MakePlan(const Options& options, NetworkStack& stack) {
  Plan plan;
  const Reach reach = ReachFinder(stack).Find(WithoutRepeats(NetworksOf(options, stack, plan)));
  if (!reach.Down.empty()) plan.Notes.push_back(DownNote(reach.DeviceThatIsDown, reach.Down));
  if (!reach.Unreachable.empty()) {
    plan.Notes.push_back(
        NotSweptNote(reach.Unreachable, "no route; check the network devices and routes"));
  }
  plan.LeavesOut = plan.LeavesOut || !reach.Down.empty() || !reach.Unreachable.empty();
  plan.Networks = reach.Reachable;
  if (!reach.Beyond.empty() && !options.ChangesFile) NoteBeyond(options, reach.Beyond, plan);
  return plan;
}

}  // namespace hostsweep
