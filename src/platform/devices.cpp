#include "platform/devices.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <memory>

#include "platform/descriptor.h"
#include "platform/system_call.h"

namespace hostsweep {
namespace {

std::uint32_t NumberOf(const sockaddr* address) {
  // On macOS a netmask can be shorter than the structure, but does not end before its address.
  sockaddr_in internet{};
  std::memcpy(&internet, address, offsetof(sockaddr_in, sin_addr) + sizeof internet.sin_addr);
  return ntohl(internet.sin_addr.s_addr);
}

// Linux sets IFF_LOWER_UP as soon as a device has a link, and IFF_RUNNING up to a second later.
// Other systems have no flag of that number.
bool IsUp(unsigned int flags) {
  constexpr unsigned int LowerUp = 1U << 16U;
  return (flags & IFF_UP) != 0 && (flags & (IFF_RUNNING | LowerUp)) != 0;
}

}  // namespace

std::vector<DeviceAddress> DeviceAddresses() {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) ThrowSystemError("getifaddrs");
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(list, freeifaddrs);
  std::vector<DeviceAddress> addresses;
  for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
    if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_INET) continue;
    if (entry->ifa_netmask == nullptr || (entry->ifa_flags & IFF_BROADCAST) == 0) continue;
    if ((entry->ifa_flags & (IFF_LOOPBACK | IFF_NOARP)) != 0) continue;
    addresses.push_back({entry->ifa_name, NumberOf(entry->ifa_addr), NumberOf(entry->ifa_netmask),
                         IsUp(entry->ifa_flags)});
  }
  return addresses;
}

bool HasRoute(std::uint32_t address) {
  const Descriptor socket(::socket(AF_INET, SOCK_DGRAM, 0));
  if (socket.Number() < 0) ThrowSystemError("socket");
  const int enabled = 1;  // or a route to a broadcast address would be refused
  setsockopt(socket.Number(), SOL_SOCKET, SO_BROADCAST, &enabled, sizeof enabled);
  sockaddr_in target{};
  target.sin_family = AF_INET;
  target.sin_port = htons(9);  // any: nothing is sent
  target.sin_addr.s_addr = htonl(address);
  sockaddr generic{};
  std::memcpy(&generic, &target, sizeof target);
  if (connect(socket.Number(), &generic, sizeof target) == 0) return true;
  constexpr std::array<int, 5> Refusals = {ENETUNREACH, EHOSTUNREACH, ENETDOWN, EACCES, EINVAL};
  return std::find(Refusals.begin(), Refusals.end(), errno) == Refusals.end();
}

}  // namespace hostsweep
