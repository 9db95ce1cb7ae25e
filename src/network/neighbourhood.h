// The networks that the devices of this machine are on: whose hardware addresses it can see.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "network/network.h"
#include "platform/devices.h"

namespace hostsweep {

// The place of an address: on no device that is up, one that a host on such a device can have, or
// the address of such a device's network or its broadcast address, which no host can have.
enum class Place { Elsewhere, Neighbour, Reserved };

class Neighbourhood {
 public:
  explicit Neighbourhood(std::vector<DeviceAddress> devices) : devices_(std::move(devices)) {}

  // The networks of the devices that are up, each once, in the order of the devices. `leftOut` gets
  // those that are larger than a /20, which would take long.
  [[nodiscard]] std::vector<Network> LocalNetworks(std::vector<Network>& leftOut) const;

  // True if each address of the network is on a device that is up.
  [[nodiscard]] bool Has(const Network& network) const;

  // True if one address of the network or more is on a device that is up.
  [[nodiscard]] bool HasPartOf(const Network& network) const;

  // A device that is down and that, with others, has the network; empty if there is none.
  [[nodiscard]] std::string DeviceThatIsDown(const Network& network) const;

  [[nodiscard]] Place PlaceOf(std::uint32_t address) const;

 private:
  std::vector<DeviceAddress> devices_;
};

}  // namespace hostsweep
