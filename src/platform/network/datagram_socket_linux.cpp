// Linux: a socket that is bound to a group sends from the address of the device.
#include "platform/network/datagram_socket.h"
#include "platform/network/socket_address.h"

namespace hostsweep {

bool DatagramSocket::ShareGroup(std::uint32_t group, std::uint16_t port) const {
  // Beside a socket of another user the second alone is refused.
  for (const int option : {SO_REUSEADDR, SO_REUSEPORT}) {
    const int on = 1;
    if (setsockopt(Number(), SOL_SOCKET, option, &on, sizeof on) != 0) return false;
  }
  const sockaddr address = SocketAddress(group, port);
  return bind(Number(), &address, sizeof address) == 0;
}

}  // namespace hostsweep
