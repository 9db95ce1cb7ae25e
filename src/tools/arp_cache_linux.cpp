// Linux: the kernel's ARP cache, and its list of devices, whose own addresses are not in the cache.
#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <netpacket/packet.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>

#include "tools/arp_cache.h"
#include "tools/neighbour.h"
#include "tools/tool.h"

namespace hostsweep {
namespace {

std::string AddressOf(const ifaddrs& device) {
  sockaddr_in address{};
  std::memcpy(&address, device.ifa_addr, sizeof address);
  std::array<char, INET_ADDRSTRLEN> text{};
  inet_ntop(AF_INET, &address.sin_addr, text.data(), text.size());
  return text.data();
}

// The C library makes room for a hardware address that is longer than the member for it.
std::string HardwareAddressOf(const ifaddrs& device) {
  const auto* const bytes = reinterpret_cast<const unsigned char*>(device.ifa_addr);
  return FormatHardwareAddress(bytes + offsetof(sockaddr_ll, sll_addr),
                               bytes[offsetof(sockaddr_ll, sll_halen)]);
}

bool IsOfFamily(const ifaddrs& device, int family) {
  return device.ifa_addr != nullptr && device.ifa_addr->sa_family == family;
}

// The name of a device without the ":" and label that one of its addresses can carry.
std::string NameOf(const ifaddrs& device) {
  const std::string name = device.ifa_name;
  return name.substr(0, name.find(':'));
}

// The entry for an address of this machine itself: permanent, with its device's hardware address;
// none if that device is a loopback, a tunnel, or has no hardware address.
std::optional<ArpEntry> FindOwn(const std::string& address) {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return {};
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> devices(list, freeifaddrs);
  for (const ifaddrs* owner = list; owner != nullptr; owner = owner->ifa_next) {
    if (!IsOfFamily(*owner, AF_INET) || AddressOf(*owner) != address) continue;
    if ((owner->ifa_flags & (IFF_LOOPBACK | IFF_POINTOPOINT)) != 0) continue;
    for (const ifaddrs* device = list; device != nullptr; device = device->ifa_next) {
      if (!IsOfFamily(*device, AF_PACKET) || NameOf(*device) != NameOf(*owner)) continue;
      const std::string hardwareAddress = HardwareAddressOf(*device);
      if (!hardwareAddress.empty()) return ArpEntry{hardwareAddress, NameOf(*device), true};
    }
  }
  return {};
}

std::optional<ArpEntry> Find(const std::string& address) {
  std::optional<ArpEntry> cached = FindNeighbour(address);
  if (cached && !cached->HardwareAddress.empty()) return cached;
  const std::optional<ArpEntry> own = FindOwn(address);
  return own ? own : cached;
}

// The three forms of arp(8)'s answer. A device may be called "(incomplete)", which would tell a
// reader that the entry is.
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
