// The request is rtnetlink(7)'s RTM_GETNEIGH for one address on one device.
#include "platform/network/neighbour_linux.h"

#include <arpa/inet.h>
#include <linux/neighbour.h>
#include <net/if.h>

#include <cerrno>
#include <memory>
#include <system_error>

#include "platform/network/hardware_bytes.h"
#include "platform/network/netlink_linux.h"
#include "platform/system_call.h"
#include "tools/neighbour.h"

namespace hostsweep {
namespace {

bool IsComplete(NeighbourState state) {
  switch (state) {
    case NeighbourState::Reachable:
    case NeighbourState::Stale:
    case NeighbourState::Delay:
    case NeighbourState::Probe:
    case NeighbourState::Permanent:
      return true;
    default:
      return false;
  }
}

// The entry of the address on the device; nothing if there is no entry, or if nothing was asked by
// ARP for it.
std::optional<ArpEntry> Find(Netlink& kernel, in_addr address, const struct if_nameindex& device) {
  ndmsg wanted{};
  wanted.ndm_family = AF_INET;
  wanted.ndm_ifindex = static_cast<int>(device.if_index);
  std::optional<Neighbour> entry;
  const int error = kernel.Get(
      RTM_GETNEIGH, std::string(BytesOf(wanted)) + Attribute(NDA_DST, BytesOf(address)),
      [&](unsigned int /*type*/, std::string_view body) { entry = ParseNeighbour(body, {}); });
  const bool isNone = error == ENOENT || error == ENODEV;
  if (error != 0 && !isNone) throw std::system_error(error, std::generic_category(), "netlink");
  if (!entry || entry->State == NeighbourState::None || entry->State == NeighbourState::NoArp) {
    return {};
  }
  const std::string bytes = IsComplete(entry->State) ? entry->HardwareAddress : "";
  return ArpEntry{FormatHardwareBytes(bytes), device.if_name};
}

}  // namespace

std::optional<ArpEntry> FindNeighbour(const std::string& address) {
  in_addr target{};
  if (inet_pton(AF_INET, address.c_str(), &target) != 1) return {};
  Netlink kernel;
  const std::unique_ptr<struct if_nameindex, void (*)(struct if_nameindex*)> devices(
      if_nameindex(), if_freenameindex);
  if (devices == nullptr) ThrowSystemError("if_nameindex");
  std::optional<ArpEntry> found;
  for (const struct if_nameindex* device = devices.get(); device->if_index != 0; ++device) {
    const std::optional<ArpEntry> entry = Find(kernel, target, *device);
    if (!entry) continue;
    found = entry;
    if (!entry->HardwareAddress.empty()) break;
  }
  return found;
}

}  // namespace hostsweep
