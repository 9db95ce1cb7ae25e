// UDP sockets of programs that ask many hosts. Addresses are numbers in host byte order.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/descriptor.h"

namespace hostsweep {

struct Datagram {
  std::uint32_t Sender = 0;
  std::uint16_t Port = 0;  // of the sender
  std::string Data;
};

// Nothing here waits.
class DatagramSocket {
 public:
  // A socket without a port, which the system chooses at the first datagram. Throws
  // `std::system_error` if the system has none to give.
  DatagramSocket();

  // Takes the port of a multicast group beside other programs that share it, for datagrams to the
  // group alone: those to this machine stay with the others. Returns false, and the system chooses
  // the port, if it cannot be had.
  [[nodiscard]] bool ShareGroup(std::uint32_t group, std::uint16_t port) const;

  // Receives what is sent to the group on the device. Without effect where the device cannot do so.
  void Join(std::uint32_t group, int device) const;

  // Sends a datagram. Returns false if the system takes none now, and it is to be sent later. One
  // that the system refuses is lost, as any datagram can be.
  [[nodiscard]] bool Send(std::string_view data, std::uint32_t address, std::uint16_t port) const;

  // The same, to the group on the device. The datagram does not pass a router.
  [[nodiscard]] bool SendToGroup(std::string_view data, std::uint32_t group, std::uint16_t port,
                                 int device) const;

  // The datagrams that have arrived, at most 256 of them: what has come after these is received the
  // next time.
  [[nodiscard]] std::vector<Datagram> Receive() const;

  // The descriptor from which datagrams can be read after poll(2) says so.
  [[nodiscard]] int Number() const { return socket_.Number(); }

 private:
  Descriptor socket_;
};

}  // namespace hostsweep
