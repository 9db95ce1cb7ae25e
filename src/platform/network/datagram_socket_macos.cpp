// macOS: a socket that is bound to a group would send from the group's address, and a socket that
// is bound to INADDR_ANY would take the answers to the system's own questions. So no port is
// shared.
#include "platform/network/datagram_socket.h"

namespace hostsweep {

bool DatagramSocket::ShareGroup(std::uint32_t /*group*/, std::uint16_t /*port*/) const {
  return false;
}

}  // namespace hostsweep
