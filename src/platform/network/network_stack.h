// What the operating system's network stack tells: where addresses lead, the states of the links,
// and the ARP cache. Each system has a source of its own. Addresses are numbers in host byte order.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/network/devices.h"
#include "platform/network/neighbour.h"

namespace hostsweep {

// The way to an address.
struct Route {
  enum class Kind {
    Direct,    // to a device that asks for it by ARP
    Beyond,    // by a gateway, or to a device without ARP, such as a tunnel
    Own,       // to this machine itself
    Reserved,  // to no host: it stands for a network, for all of its hosts, or for a group
    None       // nowhere
  };
  Kind Leads = Kind::None;
  int Device = 0;             // the system's number of the device; 0 if it is not known
  std::uint32_t Gateway = 0;  // 0 if there is no gateway, or it is not known
  friend bool operator==(const Route&, const Route&) = default;
};

// The link of a device.
struct LinkState {
  bool IsUp = false;          // the device is set up and has a link
  std::uint64_t Changes = 0;  // a number that changes whenever link, addresses or routes change
};

// Every function throws `std::system_error` if the system cannot be asked.
class NetworkStack {
 public:
  NetworkStack();
  NetworkStack(const NetworkStack&) = delete;
  NetworkStack& operator=(const NetworkStack&) = delete;
  ~NetworkStack();

  // The addresses that this machine had when this object was made.
  [[nodiscard]] const std::vector<DeviceAddress>& Devices() const { return devices_; }

  // The way that a datagram to the address would take now. Sends nothing.
  Route RouteTo(std::uint32_t address);

  // The link as it is now.
  LinkState LinkOf(int device);

  // The ARP cache as it is now; `now` is the current time.
  NeighbourTable Neighbours(Clock::time_point now);

 private:
  class System;
  std::vector<DeviceAddress> devices_;
  std::unique_ptr<System> system_;
};

}  // namespace hostsweep
