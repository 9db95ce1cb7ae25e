// The sockets through which a sweep probes addresses: any datagram makes the kernel ask for the
// hardware address by ARP, and a host can answer it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/descriptor.h"

namespace hostsweep {

// An answer to a probe. From the target itself it says that a host is there; from another sender it
// is an ICMP error. Addresses are in host byte order.
struct ProbeAnswer {
  std::uint32_t Target = 0;
  std::uint32_t Sender = 0;
};

enum class SendResult {
  Sent,
  NoRoom,      // the sockets hold as many datagrams as they can: send it later
  TableFull,   // the kernel's table of neighbours is full, or a queue: send it later
  Forbidden,   // a firewall of this machine forbids it
  Unreachable  // there is no way to the address
};

// ICMP echo sockets, which need no privilege, where the system allows them, and otherwise UDP
// sockets, whose empty datagrams go to the port of the discard service (RFC 863). No function
// waits.
class ProbeSockets {
 public:
  // Opens the first socket. Throws `std::system_error` if that fails.
  ProbeSockets();

  // Sends one datagram to the address, which must be that of a single host.
  SendResult Send(std::uint32_t address);

  // The answers that have arrived.
  std::vector<ProbeAnswer> Receive();

  // The descriptors from which answers can be read after poll(2) says so.
  [[nodiscard]] const std::vector<Descriptor>& Sockets() const { return sockets_; }

 private:
  void Open();
  bool TryOpen();
  void ReceiveFrom(int socket, std::vector<ProbeAnswer>& answers) const;
  [[nodiscard]] std::optional<ProbeAnswer> AnswerIn(std::string_view received,
                                                    std::uint32_t sender) const;

  bool isEcho_ = true;
  std::string request_;  // the datagram; empty for UDP
  std::vector<Descriptor> sockets_;
  std::size_t current_ = 0;  // the socket that took the last datagram
};

}  // namespace hostsweep
