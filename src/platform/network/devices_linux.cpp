// Linux: the kernel's lists of devices and of their addresses.
#include <arpa/inet.h>
#include <linux/if_addr.h>
#include <linux/if_link.h>
#include <net/if.h>
#include <sys/socket.h>

#include <map>
#include <system_error>

#include "platform/network/devices.h"
#include "platform/network/link_linux.h"
#include "platform/network/netlink_linux.h"

namespace hostsweep {
namespace {

void Require(int error, const char* what) {
  if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

std::map<int, Link> ListLinks(Netlink& kernel) {
  std::map<int, Link> links;
  const int error =
      kernel.List(RTM_GETLINK, LinkRequest(0), [&](unsigned int type, std::string_view body) {
        const auto link = type == RTM_NEWLINK ? ParseLink(body) : std::nullopt;
        if (link) links.emplace(link->Index, *link);
      });
  Require(error, "devices");
  return links;
}

}  // namespace

std::vector<DeviceAddress> DeviceAddresses() {
  Netlink kernel;
  const std::map<int, Link> links = ListLinks(kernel);
  std::vector<DeviceAddress> addresses;
  ifaddrmsg all{};
  all.ifa_family = AF_INET;
  const auto take = [&](unsigned int /*type*/, std::string_view body) {
    const auto message = MessageIn<ifaddrmsg>(body);
    if (!message || message->Fixed.ifa_family != AF_INET) return;
    const auto network = message->Number(IFA_ADDRESS);
    const auto own = message->Number(IFA_LOCAL);
    const auto link = links.find(static_cast<int>(message->Fixed.ifa_index));
    if (!network || link == links.end()) return;
    const unsigned int flags = link->second.Flags;
    DeviceAddress address;
    address.Device = link->second.Name;
    address.Index = link->second.Index;
    address.Address = ntohl(own.value_or(*network));
    address.Network = ntohl(*network);
    address.PrefixLength = message->Fixed.ifa_prefixlen;
    if ((flags & (IFF_LOOPBACK | IFF_POINTOPOINT)) == 0) {
      address.HardwareAddress = link->second.HardwareAddress;
    }
    address.UsesArp = (flags & IFF_BROADCAST) != 0 && UsesArp(link->second);
    address.IsUp = IsUp(link->second);
    addresses.push_back(address);
  };
  Require(kernel.List(RTM_GETADDR, std::string(BytesOf(all)), take), "addresses");
  return addresses;
}

}  // namespace hostsweep
