// macOS: the devices' networks, whether connect(2) finds a route, and the list of sysctl(3) that
// arp(8) prints. The list has no ages, and a hardware address in it counts as confirmed.
#include <arpa/inet.h>
#include <net/if.h>
#include <net/if_dl.h>
#include <net/route.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/sysctl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/network/network_stack.h"
#include "platform/network/socket_address.h"
#include "platform/system_call.h"

namespace hostsweep {
namespace {

bool HasRoute(std::uint32_t address) {
  const Descriptor socket(::socket(AF_INET, SOCK_DGRAM, 0));
  if (socket.Number() < 0) ThrowSystemError("socket");
  const sockaddr target = SocketAddress(address, 9);  // any port: nothing is sent
  return connect(socket.Number(), &target, sizeof target) == 0;
}

bool IsForGroups(std::uint32_t address) { return address >= 0xE0000000U; }  // RFC 1112

bool IsSame(const DeviceAddress& left, const DeviceAddress& right) {
  return left.Index == right.Index && left.Address == right.Address &&
         left.PrefixLength == right.PrefixLength && left.IsUp == right.IsUp;
}

// The bytes of the list; empty if the system does not show it.
std::string ListEntries() {
  std::array<int, 6> name = {CTL_NET, PF_ROUTE, 0, AF_INET, NET_RT_FLAGS, RTF_LLINFO};
  std::string list;
  for (;;) {
    std::size_t size = 0;
    if (sysctl(name.data(), name.size(), nullptr, &size, nullptr, 0) != 0) {
      ThrowSystemError("ARP cache");
    }
    list.resize(size + size / 4);  // room for entries that come meanwhile
    size = list.size();
    if (list.empty()) return list;
    if (sysctl(name.data(), name.size(), list.data(), &size, nullptr, 0) == 0) {
      list.resize(size);
      return list;
    }
    if (errno != ENOMEM) ThrowSystemError("ARP cache");
  }
}

template <typename Object>
std::optional<Object> ObjectAt(std::string_view bytes, std::size_t offset, std::size_t size) {
  Object object{};
  if (offset > bytes.size() || size > bytes.size() - offset) return {};
  std::memcpy(&object, bytes.data() + offset, size);
  return object;
}

// A message of the list: its header, the address, and the hardware address (route(4)).
std::optional<Neighbour> EntryIn(std::string_view message, const rt_msghdr& header,
                                 Clock::time_point now) {
  constexpr std::size_t Rounding = 4;
  const auto address = ObjectAt<sockaddr_in>(message, sizeof header, sizeof(sockaddr_in));
  if (!address || address->sin_family != AF_INET) return {};
  const std::size_t length = (address->sin_len + Rounding - 1) / Rounding * Rounding;
  const std::size_t offset = sizeof header + length;
  const auto link = ObjectAt<sockaddr_dl>(message, offset, offsetof(sockaddr_dl, sdl_data));
  if (!link || link->sdl_family != AF_LINK) return {};
  Neighbour entry;
  entry.Device = link->sdl_index;
  entry.Address = ntohl(address->sin_addr.s_addr);
  entry.Since = now;
  entry.Confirmed = now;
  const std::size_t data = offset + offsetof(sockaddr_dl, sdl_data) + link->sdl_nlen;
  if (link->sdl_alen > 0 && data + link->sdl_alen <= message.size()) {
    entry.State = NeighbourState::Reachable;
    entry.HardwareAddress = message.substr(data, link->sdl_alen);
  } else {
    const bool hasGivenUp = (header.rtm_flags & RTF_REJECT) != 0;
    entry.State = hasGivenUp ? NeighbourState::Failed : NeighbourState::Incomplete;
  }
  return entry;
}

}  // namespace

class NetworkStack::System {
 public:
  explicit System(const std::vector<DeviceAddress>& devices) : devices_(devices) {}

  Route RouteTo(std::uint32_t address) const {
    constexpr std::uint32_t Loopback = 127;
    if (address == INADDR_ANY) return {Route::Kind::Reserved, 0, 0};
    if (address >> 24U == Loopback) return {Route::Kind::Own, 0, 0};
    const DeviceAddress* on = nullptr;
    for (const DeviceAddress& device : devices_) {
      if (device.Address == address) return {Route::Kind::Own, device.Index, 0};
      const bool isOn = device.UsesArp && device.IsUp && IsInNetwork(device, address);
      const bool isNearer = on == nullptr || device.PrefixLength > on->PrefixLength;
      if (isOn && isNearer) on = &device;
    }
    if (IsForGroups(address)) return {Route::Kind::Reserved, 0, 0};
    if (on != nullptr) {
      return {IsReserved(*on, address) ? Route::Kind::Reserved : Route::Kind::Direct, on->Index, 0};
    }
    return {HasRoute(address) ? Route::Kind::Beyond : Route::Kind::None, 0, 0};
  }

  // Device 0 stands for the unknown device of a way beyond.
  LinkState LinkOf(int device) {
    const std::vector<DeviceAddress> now = DeviceAddresses();
    if (!std::equal(now.begin(), now.end(), devices_.begin(), devices_.end(), IsSame)) ++changes_;
    devices_ = now;
    const bool isUp = device == 0 || std::any_of(now.begin(), now.end(), [&](const auto& address) {
                        return address.Index == device && address.IsUp;
                      });
    return {isUp, changes_};
  }

  static NeighbourTable Neighbours(Clock::time_point now) {
    const std::string list = ListEntries();
    std::vector<Neighbour> entries;
    std::string_view rest = list;
    while (const auto header = ObjectAt<rt_msghdr>(rest, 0, sizeof(rt_msghdr))) {
      if (header->rtm_msglen < sizeof *header || header->rtm_msglen > rest.size()) break;
      const auto entry = EntryIn(rest.substr(0, header->rtm_msglen), *header, now);
      if (entry) entries.push_back(*entry);
      rest.remove_prefix(header->rtm_msglen);
    }
    return NeighbourTable(std::move(entries));
  }

 private:
  std::vector<DeviceAddress> devices_;
  std::uint64_t changes_ = 0;
};

NetworkStack::NetworkStack()
    : devices_(DeviceAddresses()), system_(std::make_unique<System>(devices_)) {}

NetworkStack::~NetworkStack() = default;

Route NetworkStack::RouteTo(std::uint32_t address) { return system_->RouteTo(address); }

LinkState NetworkStack::LinkOf(int device) { return system_->LinkOf(device); }

NeighbourTable NetworkStack::Neighbours(Clock::time_point now) { return System::Neighbours(now); }

}  // namespace hostsweep
