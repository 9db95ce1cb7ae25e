#include "network/neighbourhood.h"

#include <algorithm>
#include <iterator>

namespace hostsweep {
namespace {

std::uint32_t PrefixLength(std::uint32_t netmask) {
  std::uint32_t length = 0;
  while (length < 32 && (netmask << length & 0x80000000U) != 0) ++length;
  return length;
}

std::uint32_t FirstOf(const DeviceAddress& device) { return device.Address & device.Netmask; }

std::uint32_t LastOf(const DeviceAddress& device) { return device.Address | ~device.Netmask; }

bool Contains(const DeviceAddress& device, std::uint32_t address) {
  return FirstOf(device) <= address && address <= LastOf(device);
}

bool Overlap(const DeviceAddress& device, const Network& network) {
  return FirstOf(device) <= network.Last && network.First <= LastOf(device);
}

// True if each address of the network is on one of the devices.
bool Cover(const std::vector<DeviceAddress>& devices, const Network& network) {
  for (std::uint64_t address = network.First; address <= network.Last;) {
    const auto found = std::find_if(devices.begin(), devices.end(), [&](const auto& device) {
      return Contains(device, static_cast<std::uint32_t>(address));
    });
    if (found == devices.end()) return false;
    address = std::uint64_t{LastOf(*found)} + 1;
  }
  return true;
}

}  // namespace

std::vector<Network> Neighbourhood::LocalNetworks(std::vector<Network>& leftOut) const {
  constexpr std::uint32_t ShortestLocalPrefix = 20;
  std::vector<Network> networks;
  for (const DeviceAddress& device : devices_) {
    if (!device.IsUp) continue;
    const std::uint32_t length = PrefixLength(device.Netmask);
    const Network network = NetworkOf(device.Address, length);
    std::vector<Network>& list = length < ShortestLocalPrefix ? leftOut : networks;
    const bool isKnown = std::any_of(
        list.begin(), list.end(), [&](const Network& other) { return other.Name == network.Name; });
    if (!isKnown) list.push_back(network);
  }
  return networks;
}

bool Neighbourhood::Has(const Network& network) const {
  std::vector<DeviceAddress> up;
  std::copy_if(devices_.begin(), devices_.end(), std::back_inserter(up),
               [](const DeviceAddress& device) { return device.IsUp; });
  return Cover(up, network);
}

bool Neighbourhood::HasPartOf(const Network& network) const {
  return std::any_of(devices_.begin(), devices_.end(), [&](const DeviceAddress& device) {
    return device.IsUp && Overlap(device, network);
  });
}

std::string Neighbourhood::DeviceThatIsDown(const Network& network) const {
  if (Has(network) || !Cover(devices_, network)) return {};
  const auto found = std::find_if(
      devices_.begin(), devices_.end(),
      [&](const DeviceAddress& device) { return !device.IsUp && Overlap(device, network); });
  return found == devices_.end() ? "" : found->Device;
}

Place Neighbourhood::PlaceOf(std::uint32_t address) const {
  Place place = Place::Elsewhere;
  for (const DeviceAddress& device : devices_) {
    if (!device.IsUp || !Contains(device, address)) continue;
    const bool isAtEnd = address == FirstOf(device) || address == LastOf(device);
    if (isAtEnd && LastOf(device) - FirstOf(device) > 1) return Place::Reserved;
    place = Place::Neighbour;
  }
  return place;
}

}  // namespace hostsweep
