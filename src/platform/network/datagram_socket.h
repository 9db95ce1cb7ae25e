// UDP sockets of programs that ask many hosts. Addresses are numbers in host byte order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/descriptor.h"

namespace hostsweep {

// The index of the device by which a system sends to itself, on Linux and macOS.
constexpr int LoopbackDevice = 1;

// The largest datagram that is received: multicast DNS allows no larger packet (RFC 6762, section
// 17), and other datagrams to programs like this are smaller.
constexpr std::size_t LargestDatagram = 9000;

struct Datagram {
  std::uint32_t Sender = 0;
  std::uint16_t Port = 0;  // of the sender
  int Device = 0;          // the index of the device that it has come by; 0 if that is not known
  std::string Data;
};

// No function waits.
class DatagramSocket {
 public:
  // A socket whose port the system chooses at the first datagram. Throws `std::system_error` if it
  // cannot be opened.
  DatagramSocket();

  // Shares a port with the other programs that have it, for datagrams to this multicast group only:
  // datagrams to this machine's own addresses still go to the others. Returns false if that is not
  // possible; the system then chooses the port.
  [[nodiscard]] bool ShareGroup(std::uint32_t group, std::uint16_t port) const;

  // Receives what is sent to the group on the device, and on no other that is not joined. Has no
  // effect on a device without multicast.
  void Join(std::uint32_t group, int device) const;

  // Sends a datagram. Returns false if the system takes no datagram now: it is to be sent later. A
  // datagram that the system refuses is lost, as any datagram can be.
  [[nodiscard]] bool Send(std::string_view data, std::uint32_t address, std::uint16_t port) const;

  // The same, to the group on the device. The datagram does not pass a router.
  [[nodiscard]] bool SendToGroup(std::string_view data, std::uint32_t group, std::uint16_t port,
                                 int device) const;

  // The datagrams that have arrived, at most 256 of them; the next call gets the rest. Larger ones
  // than `LargestDatagram` are thrown away.
  [[nodiscard]] std::vector<Datagram> Receive() const;

  // The descriptor from which datagrams can be read after poll(2) says so.
  [[nodiscard]] int Number() const { return socket_.Number(); }

 private:
  Descriptor socket_;
};

}  // namespace hostsweep
