// The request is rtnetlink(7)'s RTM_GETNEIGH for one address on one device.
#include <arpa/inet.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <sys/socket.h>
#include <sys/uio.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/system_call.h"
#include "tools/neighbour.h"

namespace hostsweep {
namespace {

struct Request {
  nlmsghdr Header{};
  ndmsg Neighbour{};
  rtattr Attribute{};
  in_addr Address{};
};
static_assert(sizeof(Request) == NLMSG_LENGTH(sizeof(ndmsg)) + RTA_LENGTH(sizeof(in_addr)));

// A copy of the object at this offset; nothing if the bytes end before its end.
template <typename Object>
std::optional<Object> ObjectAt(std::string_view bytes, std::size_t offset) {
  Object object{};
  if (offset + sizeof object > bytes.size()) return {};
  std::memcpy(&object, bytes.data() + offset, sizeof object);
  return object;
}

void Send(const Descriptor& socket, in_addr address, unsigned int device) {
  Request request;
  request.Header.nlmsg_len = sizeof request;
  request.Header.nlmsg_type = RTM_GETNEIGH;
  request.Header.nlmsg_flags = NLM_F_REQUEST;
  request.Neighbour.ndm_family = AF_INET;
  request.Neighbour.ndm_ifindex = static_cast<int>(device);
  request.Attribute.rta_type = NDA_DST;
  request.Attribute.rta_len = RTA_LENGTH(sizeof address);
  request.Address = address;
  // Emulators of other processors know few netlink messages, and pass on vectors as they are.
  const iovec part = {&request, sizeof request};
  if (RetryInterrupted([&] { return writev(socket.Number(), &part, 1); }) < 0) {
    ThrowSystemError("netlink");
  }
}

std::string Receive(const Descriptor& socket) {
  std::array<char, 8192> buffer{};  // the size that netlink(7) asks for
  const iovec part = {buffer.data(), buffer.size()};
  const ssize_t size = RetryInterrupted([&] { return readv(socket.Number(), &part, 1); });
  if (size < 0) ThrowSystemError("netlink");
  return {buffer.data(), static_cast<std::size_t>(size)};
}

// The value of the attribute that holds the hardware address; empty if there is none.
std::string_view HardwareAddressIn(std::string_view message) {
  std::size_t offset = NLMSG_LENGTH(sizeof(ndmsg));
  while (const auto attribute = ObjectAt<rtattr>(message, offset)) {
    if (attribute->rta_len < sizeof *attribute) break;
    if (attribute->rta_type == NDA_LLADDR) {
      return message.substr(offset + RTA_LENGTH(0), attribute->rta_len - RTA_LENGTH(0));
    }
    offset += RTA_ALIGN(attribute->rta_len);
  }
  return {};
}

// The entry that an answer describes; nothing if it says that there is none.
std::optional<ArpEntry> Parse(std::string_view answer, const char* device) {
  const auto header = ObjectAt<nlmsghdr>(answer, 0);
  if (header && header->nlmsg_type == NLMSG_ERROR) {
    const auto error = ObjectAt<nlmsgerr>(answer, NLMSG_HDRLEN);
    if (!error || error->error == -ENOENT || error->error == -ENODEV) return {};
    errno = -error->error;
    ThrowSystemError("netlink");
  }
  const auto neighbour = ObjectAt<ndmsg>(answer, NLMSG_HDRLEN);
  if (!neighbour) return {};
  const unsigned int state = neighbour->ndm_state;
  if ((state & ~static_cast<unsigned int>(NUD_NOARP)) == 0) return {};
  constexpr unsigned int Complete =
      NUD_PERMANENT | NUD_REACHABLE | NUD_STALE | NUD_DELAY | NUD_PROBE;
  const std::string_view bytes = HardwareAddressIn(answer);
  const bool isComplete = (state & Complete) != 0;
  return ArpEntry{isComplete
                      ? FormatHardwareAddress(reinterpret_cast<const unsigned char*>(bytes.data()),
                                              bytes.size())
                      : "",
                  device};
}

}  // namespace

std::optional<ArpEntry> FindNeighbour(const std::string& address) {
  in_addr target{};
  if (inet_pton(AF_INET, address.c_str(), &target) != 1) return {};
  const Descriptor socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE));
  if (socket.Number() < 0) ThrowSystemError("netlink");
  const std::unique_ptr<struct if_nameindex, void (*)(struct if_nameindex*)> devices(
      if_nameindex(), if_freenameindex);
  if (devices == nullptr) ThrowSystemError("if_nameindex");
  std::optional<ArpEntry> found;
  for (const struct if_nameindex* device = devices.get(); device->if_index != 0; ++device) {
    Send(socket, target, device->if_index);
    const std::optional<ArpEntry> entry = Parse(Receive(socket), device->if_name);
    if (!entry) continue;
    found = entry;
    if (!entry->HardwareAddress.empty()) break;
  }
  return found;
}

std::string FormatHardwareAddress(const unsigned char* bytes, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    std::array<char, 4> group{};
    std::snprintf(group.data(), group.size(), ":%02x", bytes[i]);
    text += group.data();
  }
  return text.empty() ? text : text.substr(1);
}

}  // namespace hostsweep
