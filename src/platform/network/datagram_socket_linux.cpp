// Linux: a socket that is bound to a group sends from the address of the device.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstring>

#include "platform/network/datagram_socket.h"

namespace hostsweep {

bool DatagramSocket::ShareGroup(std::uint32_t group, std::uint16_t port) const {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(group);
  sockaddr generic{};
  std::memcpy(&generic, &address, sizeof address);
  // Beside a socket of another user the second alone is refused.
  for (const int option : {SO_REUSEADDR, SO_REUSEPORT}) {
    const int on = 1;
    if (setsockopt(Number(), SOL_SOCKET, option, &on, sizeof on) != 0) return false;
  }
  return bind(Number(), &generic, sizeof generic) == 0;
}

}  // namespace hostsweep
