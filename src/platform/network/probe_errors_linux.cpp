// Linux: ip(7), "Error queue", and icmp(7).
#include <arpa/inet.h>
#include <linux/errqueue.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "platform/network/probe_errors.h"
#include "platform/network/received_message.h"
#include "platform/network/socket_address.h"

namespace hostsweep {
namespace {

// The sender of the ICMP error that the control message tells; this machine for an error that is
// not from the network.
std::uint32_t SenderIn(cmsghdr* control) {
  sock_extended_err error{};
  std::memcpy(&error, CMSG_DATA(control), sizeof error);
  if (error.ee_origin != SO_EE_ORIGIN_ICMP) return INADDR_LOOPBACK;
  return AddressIn(CMSG_DATA(control) + sizeof error);
}

}  // namespace

void KeepErrors(int socket) {
  const int enabled = 1;
  setsockopt(socket, IPPROTO_IP, IP_RECVERR, &enabled, sizeof enabled);
}

std::optional<ProbeAnswer> ReadError(int socket) {
  std::array<char, 64> data{};
  ReceivedMessage message(data.data(), data.size());
  if (message.Receive(socket, MSG_ERRQUEUE | MSG_DONTWAIT) < 0) return {};
  ProbeAnswer answer = {AddressIn(&message.Address()), INADDR_LOOPBACK};
  msghdr& header = message.Header();
  for (cmsghdr* next = CMSG_FIRSTHDR(&header); next != nullptr; next = CMSG_NXTHDR(&header, next)) {
    const bool isError = next->cmsg_level == IPPROTO_IP && next->cmsg_type == IP_RECVERR;
    if (isError) answer.Sender = SenderIn(next);
  }
  return answer;
}

std::optional<SendResult> MeaningOf(int error) {
  switch (error) {
    case EAGAIN:
      return SendResult::NoRoom;
    case ENOBUFS:
    case ENOMEM:
    case EINVAL:  // before August 2023 the kernel says this of its full table
      return SendResult::TableFull;
    case EPERM:
      return SendResult::Forbidden;
    default:
      return {};
  }
}

std::string_view IcmpMessageIn(std::string_view received) { return received; }

}  // namespace hostsweep
