// The plan of a sweep: which networks can be swept from this machine.
#pragma once

#include <string>
#include <vector>

#include "network/plan/network.h"
#include "network/plan/options.h"
#include "platform/network/network_stack.h"

namespace hostsweep {

struct Plan {
  std::vector<Network> Networks;   // to be swept; no address is in two of them
  bool LeavesOut = false;          // a network that was asked for is not swept
  bool IsRefused = false;          // the options ask for something that cannot be seen from here
  std::vector<std::string> Notes;  // sentences for the user, before the sweep; with `ChangesFile`
                                   // only reasons why it is incomplete
};

// For messages where the local networks may not be those that the user means.
constexpr const char* OwnNetworkHint =
    "a container, WSL or a virtual machine is often on a network of its own: "
    "see \"A network of its own\" in docs/underneath.md";

// The plan for these options on this machine. Sends nothing. Throws `UsageError` if an argument is
// neither a network nor the name of a device, and `std::system_error` if the system does not tell
// what is needed.
Plan MakePlan(const Options& options, NetworkStack& stack);

// The networks of the devices that are up and use ARP, each once, in the order of the devices.
// `leftOut` gets the networks that are larger than a /20, which would take long.
std::vector<Network> LocalNetworks(const std::vector<DeviceAddress>& devices,
                                   std::vector<Network>& leftOut);

}  // namespace hostsweep
