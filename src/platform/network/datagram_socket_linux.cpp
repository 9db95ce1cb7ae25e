// Linux: a socket that is bound to a group sends from the address of the device.
#include "platform/network/datagram_socket.h"
#include "platform/network/socket_address.h"

namespace hostsweep {

bool DatagramSocket::ShareGroup(std::uint32_t group, std::uint16_t port) const {
  // With SO_REUSEPORT alone, the port of another user's socket is refused.
  for (const int option : {SO_REUSEADDR, SO_REUSEPORT}) {
    const int on = 1;
    if (setsockopt(Number(), SOL_SOCKET, option, &on, sizeof on) != 0) return false;
  }
  // Linux would also receive what is sent to the group on devices that other programs have joined.
  const int off = 0;
  setsockopt(Number(), IPPROTO_IP, IP_MULTICAST_ALL, &off, sizeof off);
  const sockaddr address = SocketAddress(group, port);
  return bind(Number(), &address, sizeof address) == 0;
}

}  // namespace hostsweep
