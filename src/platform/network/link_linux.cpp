#include "platform/network/link_linux.h"

#include <linux/if_link.h>
#include <net/if.h>

#include "platform/network/netlink_linux.h"

namespace hostsweep {

std::string LinkRequest(int index) {
  ifinfomsg device{};
  device.ifi_index = index;
  constexpr std::uint32_t WithoutStatistics = RTEXT_FILTER_SKIP_STATS;
  return std::string(BytesOf(device)) + Attribute(IFLA_EXT_MASK, BytesOf(WithoutStatistics));
}

std::optional<Link> ParseLink(std::string_view body) {
  const auto message = MessageIn<ifinfomsg>(body);
  if (!message) return {};
  Link link;
  link.Index = message->Fixed.ifi_index;
  link.Flags = message->Fixed.ifi_flags;
  link.Name = message->Value(IFLA_IFNAME);
  link.Name.resize(link.Name.find('\0') == std::string::npos ? link.Name.size()
                                                             : link.Name.find('\0'));
  link.HardwareAddress = message->Value(IFLA_ADDRESS);
  link.CarrierChanges = message->Number(IFLA_CARRIER_CHANGES).value_or(0);
  return link;
}

// IFF_LOWER_UP changes as soon as the link does; IFF_RUNNING changes up to a second later.
bool IsUp(const Link& link) {
  constexpr unsigned int LowerUp = 1U << 16U;  // not in <net/if.h>
  return (link.Flags & IFF_UP) != 0 && (link.Flags & LowerUp) != 0;
}

bool UsesArp(const Link& link) {
  return (link.Flags & (IFF_LOOPBACK | IFF_NOARP)) == 0 && !link.HardwareAddress.empty();
}

}  // namespace hostsweep
