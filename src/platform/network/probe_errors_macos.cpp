// macOS: icmp(4). ICMP errors cannot be had, and a reply comes with the header of its IP datagram.
#include <algorithm>
#include <cerrno>

#include "platform/network/probe_errors.h"

namespace hostsweep {

void KeepErrors(int /*socket*/) {}

std::optional<ProbeAnswer> ReadError(int /*socket*/) { return {}; }

std::optional<SendResult> MeaningOf(int error) {
  switch (error) {
    case EAGAIN:
      return SendResult::NoRoom;
    case ENOBUFS:
    case ENOMEM:
      return SendResult::TableFull;
    case EPERM:
      return SendResult::Forbidden;
    case EHOSTDOWN:  // nothing has answered ARP lately, and the kernel does not ask yet again
      return SendResult::Sent;
    default:
      return {};
  }
}

// RFC 791, section 3.1: the length of the header in words of four bytes.
std::string_view IcmpMessageIn(std::string_view received) {
  const std::size_t words = received.empty() ? 0 : static_cast<unsigned char>(received[0]) & 0xFU;
  return received.substr(std::min(words * 4, received.size()));
}

}  // namespace hostsweep
