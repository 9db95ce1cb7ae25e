// Linux: the kernel's ARP cache, and its list of devices, whose own addresses are not in the cache.
#include <arpa/inet.h>
#include <netinet/in.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <system_error>

#include "platform/network/devices.h"
#include "platform/network/hardware_bytes.h"
#include "tools/arp_cache.h"
#include "tools/neighbour.h"
#include "tools/tool.h"

namespace hostsweep {
namespace {

// The entry for an address of this machine itself: permanent, with its device's hardware address.
// Nothing if the address is another machine's, or its device has no hardware address.
std::optional<ArpEntry> FindOwn(const std::string& address) {
  in_addr own{};
  if (inet_pton(AF_INET, address.c_str(), &own) != 1) return {};
  const std::vector<DeviceAddress> devices = DeviceAddresses();
  const DeviceAddress* const device = FindOwner(devices, ntohl(own.s_addr));
  if (device == nullptr) return {};
  return ArpEntry{FormatHardwareBytes(device->HardwareAddress), device->Device, true};
}

std::optional<ArpEntry> Find(const std::string& address) {
  std::optional<ArpEntry> cached = FindNeighbour(address);
  if (cached && !cached->HardwareAddress.empty()) return cached;
  const std::optional<ArpEntry> own = FindOwn(address);
  return own ? own : cached;
}

// The three forms of arp(8)'s answer. A device can be named "(incomplete)", which a reader would
// take for the state of the entry.
std::string Describe(const std::string& address, const std::optional<ArpEntry>& entry) {
  if (!entry) return address + " (" + address + ") -- no entry";
  const std::string& hardwareAddress = entry->HardwareAddress;
  std::string device = entry->Device;
  std::replace(device.begin(), device.end(), '(', '[');
  return "? (" + address + ") at " + (hardwareAddress.empty() ? "(incomplete)" : hardwareAddress) +
         " on " + device + (entry->IsPermanent ? " permanent" : "");
}

}  // namespace

std::string OtherArp() { return ProgramBehind("Arp"); }

int PrintArpEntry(const std::string& address) {
  const std::optional<ArpEntry> entry = Find(address);
  if (std::puts(Describe(address, entry).c_str()) < 0 || std::fflush(stdout) != 0) {
    return Fail("Arp", std::string("standard output: ") + std::strerror(errno), 1);
  }
  return entry ? 0 : 1;
}

}  // namespace hostsweep
