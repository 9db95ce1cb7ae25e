// Linux: asks the kernel by rtnetlink(7).
#include <arpa/inet.h>
#include <linux/if_addr.h>
#include <linux/neighbour.h>
#include <net/if.h>
#include <sys/socket.h>

#include <algorithm>
#include <map>
#include <optional>
#include <system_error>

#include "platform/network/link_linux.h"
#include "platform/network/neighbour_linux.h"
#include "platform/network/netlink_linux.h"
#include "platform/network/network_stack.h"

namespace hostsweep {
namespace {

constexpr int DefaultUnicastRequests = 3;  // ucast_solicit of arp(7)

std::string RouteRequest(std::uint32_t address) {
  rtmsg route{};
  route.rtm_family = AF_INET;
  route.rtm_dst_len = 32;
  const std::uint32_t target = htonl(address);
  return std::string(BytesOf(route)) + Attribute(RTA_DST, BytesOf(target));
}

// True if the address is in the network of another device, and not in a network of this device.
bool IsElsewhere(int device, std::uint32_t address, const std::vector<DeviceAddress>& devices) {
  bool isElsewhere = false;
  for (const DeviceAddress& other : devices) {
    if (!other.UsesArp || !other.IsUp || !IsInNetwork(other, address)) continue;
    if (other.Index == device) return false;
    isElsewhere = true;
  }
  return isElsewhere;
}

// The number from which the entries of each device count their requests, `ucast_solicit`. The
// number of device 0 holds for devices that are added later.
std::map<int, int> ListFirstCounts(Netlink& kernel) {
  std::map<int, int> counts;
  ndtmsg all{};
  all.ndtm_family = AF_INET;
  kernel.List(RTM_GETNEIGHTBL, std::string(BytesOf(all)),
              [&](unsigned int /*type*/, std::string_view body) {
                const auto table = MessageIn<ndtmsg>(body);
                if (!table || table->Fixed.ndtm_family != AF_INET) return;
                NetlinkMessage<ndtmsg> parameters;
                parameters.Attributes = table->Value(NDTA_PARMS);
                const auto count = parameters.Number(NDTPA_UCAST_PROBES);
                const auto device = parameters.Number(NDTPA_IFINDEX);
                if (count) counts[static_cast<int>(device.value_or(0))] = static_cast<int>(*count);
              });
  return counts;
}

}  // namespace

class NetworkStack::System {
 public:
  System() : firstCounts_(ListFirstCounts(kernel_)) {}

  Route RouteTo(std::uint32_t address, const std::vector<DeviceAddress>& devices) {
    if (address == INADDR_ANY) return {Route::Kind::Reserved, 0, 0};  // the kernel says "own"
    std::string answer;
    const auto take = [&](unsigned int /*type*/, std::string_view body) { answer = body; };
    if (kernel_.Get(RTM_GETROUTE, RouteRequest(address), take) != 0) return {};
    const auto message = MessageIn<rtmsg>(answer);
    if (!message) return {};
    Route route = RouteIn(*message);
    const bool isReserved = std::any_of(devices.begin(), devices.end(), [&](const auto& device) {
      return device.Index == route.Device && IsReserved(device, address);
    });
    if (route.Leads != Route::Kind::Direct) return route;
    if (isReserved) route.Leads = Route::Kind::Reserved;
    // Silence on a device says nothing of an address that belongs to the network of another.
    if (IsElsewhere(route.Device, address, devices)) route.Leads = Route::Kind::Beyond;
    return route;
  }

  LinkState LinkOf(int device) {
    ReadChanges();
    const std::optional<Link> link = AskForLink(device);
    if (!link) return {false, lostChanges_ + changes_[device]};
    return {IsUp(*link), lostChanges_ + changes_[device] + link->CarrierChanges};
  }

  NeighbourTable Neighbours(Clock::time_point now) {
    std::vector<Neighbour> entries;
    ndmsg all{};
    all.ndm_family = AF_INET;
    const auto take = [&](unsigned int /*type*/, std::string_view body) {
      std::optional<Neighbour> entry = ParseNeighbour(body, now);
      if (!entry) return;
      if (entry->Requests) *entry->Requests -= FirstCount(entry->Device);
      entries.push_back(std::move(*entry));
    };
    const int error = kernel_.List(RTM_GETNEIGH, std::string(BytesOf(all)), take);
    if (error != 0) throw std::system_error(error, std::generic_category(), "neighbours");
    return NeighbourTable(std::move(entries));
  }

 private:
  Route RouteIn(const NetlinkMessage<rtmsg>& message) {
    const auto device = static_cast<int>(message.Number(RTA_OIF).value_or(0));
    const std::uint32_t gateway = ntohl(message.Number(RTA_GATEWAY).value_or(0));
    const bool hasGateway = gateway != 0 || !message.Value(RTA_VIA).empty();
    const auto leadTo = [&](Route::Kind kind) { return Route{kind, device, gateway}; };
    switch (message.Fixed.rtm_type) {
      case RTN_LOCAL:
        return leadTo(Route::Kind::Own);
      case RTN_UNICAST:
        return leadTo(hasGateway || !HasArp(device) ? Route::Kind::Beyond : Route::Kind::Direct);
      case RTN_BROADCAST:
      case RTN_ANYCAST:
      case RTN_MULTICAST:
        return leadTo(Route::Kind::Reserved);
      default:
        return leadTo(Route::Kind::None);
    }
  }

  std::optional<Link> AskForLink(int device) {
    std::optional<Link> link;
    kernel_.Get(RTM_GETLINK, LinkRequest(device),
                [&](unsigned int /*type*/, std::string_view body) { link = ParseLink(body); });
    return link;
  }

  bool HasArp(int device) {
    const auto known = hasArp_.find(device);
    if (known != hasArp_.end()) return known->second;
    const std::optional<Link> link = AskForLink(device);
    return hasArp_[device] = link && UsesArp(*link);
  }

  [[nodiscard]] int FirstCount(int device) const {
    for (const int known : {device, 0}) {
      if (const auto found = firstCounts_.find(known); found != firstCounts_.end()) {
        return found->second;
      }
    }
    return DefaultUnicastRequests;
  }

  // A device that gets the same address again, as when a lease is renewed, has not changed.
  void ReadChanges() {
    const bool areAllThere =
        notifications_.ReadNotifications([&](unsigned int type, std::string_view body) {
          if (type == RTM_DELADDR) {
            if (const auto address = MessageIn<ifaddrmsg>(body)) {
              ++changes_[static_cast<int>(address->Fixed.ifa_index)];
            }
          } else if (type == RTM_NEWROUTE || type == RTM_DELROUTE) {
            if (const auto route = MessageIn<rtmsg>(body)) {
              ++changes_[static_cast<int>(route->Number(RTA_OIF).value_or(0))];
            }
          }
        });
    if (!areAllThere) ++lostChanges_;
  }

  Netlink kernel_;
  Netlink notifications_{RTMGRP_IPV4_IFADDR | RTMGRP_IPV4_ROUTE};
  std::map<int, int> firstCounts_;
  std::map<int, bool> hasArp_;
  std::map<int, std::uint64_t> changes_;
  std::uint64_t lostChanges_ = 0;
};

NetworkStack::NetworkStack() : devices_(DeviceAddresses()), system_(std::make_unique<System>()) {}

NetworkStack::~NetworkStack() = default;

Route NetworkStack::RouteTo(std::uint32_t address) { return system_->RouteTo(address, devices_); }

LinkState NetworkStack::LinkOf(int device) { return system_->LinkOf(device); }

NeighbourTable NetworkStack::Neighbours(Clock::time_point now) { return system_->Neighbours(now); }

}  // namespace hostsweep
