// macOS: a socket that is bound to a group would send from the address of the group, and one that
// is bound to any address would take the answers to the system's own questions. So the port cannot
// be had.
#include "platform/network/datagram_socket.h"

namespace hostsweep {

bool DatagramSocket::ShareGroup(std::uint32_t /*group*/, std::uint16_t /*port*/) const {
  return false;
}

}  // namespace hostsweep
