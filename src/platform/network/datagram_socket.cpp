#include "platform/network/datagram_socket.h"

#include <fcntl.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

#include "platform/network/received_message.h"
#include "platform/network/socket_address.h"
#include "platform/system_call.h"

namespace hostsweep {
namespace {

Descriptor OpenSocket() {
  Descriptor socket(::socket(AF_INET, SOCK_DGRAM, 0));
  if (socket.Number() < 0) ThrowSystemError("socket");
  fcntl(socket.Number(), F_SETFD, FD_CLOEXEC);
  if (fcntl(socket.Number(), F_SETFL, O_NONBLOCK) != 0) ThrowSystemError("socket");
  return socket;
}

template <typename Value>
bool SetOption(int socket, int level, int option, const Value& value) {
  return setsockopt(socket, level, option, &value, sizeof value) == 0;
}

ip_mreqn Membership(std::uint32_t group, int device) {
  ip_mreqn membership{};
  membership.imr_multiaddr.s_addr = htonl(group);
  membership.imr_ifindex = device;
  return membership;
}

// The device of a datagram that was received with `IP_PKTINFO`; 0 if the system does not say it.
int DeviceOf(const msghdr& message) {
  const cmsghdr* const control = CMSG_FIRSTHDR(&message);
  const bool isKnown =
      control != nullptr && control->cmsg_level == IPPROTO_IP && control->cmsg_type == IP_PKTINFO;
  if (!isKnown) return 0;
  in_pktinfo info{};
  std::memcpy(&info, CMSG_DATA(control), sizeof info);
  return static_cast<int>(info.ipi_ifindex);
}

// The next datagram that has arrived, without data if it does not fit into the buffer; nothing if
// there is none.
std::optional<Datagram> ReceiveNext(int socket, std::string& buffer) {
  ReceivedMessage message(buffer.data(), buffer.size());
  const ssize_t size = message.Receive(socket, 0);
  if (size < 0) return {};
  const bool isWhole = (message.Header().msg_flags & MSG_TRUNC) == 0;
  return Datagram{AddressIn(&message.Address()), PortIn(message.Address()),
                  DeviceOf(message.Header()),
                  isWhole ? buffer.substr(0, static_cast<std::size_t>(size)) : ""};
}

bool IsPassing(int error) {
  return error == EAGAIN || error == EWOULDBLOCK || error == ENOBUFS || error == ENOMEM;
}

}  // namespace

DatagramSocket::DatagramSocket() : socket_(OpenSocket()) {
  SetOption(Number(), IPPROTO_IP, IP_PKTINFO, 1);
}

void DatagramSocket::Join(std::uint32_t group, int device) const {
  SetOption(Number(), IPPROTO_IP, IP_ADD_MEMBERSHIP, Membership(group, device));
}

bool DatagramSocket::Send(std::string_view data, std::uint32_t address, std::uint16_t port) const {
  const sockaddr target = SocketAddress(address, port);
  const ssize_t size = RetryInterrupted(
      [&] { return sendto(Number(), data.data(), data.size(), 0, &target, sizeof target); });
  return size >= 0 || !IsPassing(errno);
}

bool DatagramSocket::SendToGroup(std::string_view data, std::uint32_t group, std::uint16_t port,
                                 int device) const {
  const bool isSet = SetOption(Number(), IPPROTO_IP, IP_MULTICAST_IF, Membership(group, device));
  return !isSet || Send(data, group, port);
}

std::vector<Datagram> DatagramSocket::Receive() const {
  constexpr int LargestBatch = 256;
  std::vector<Datagram> datagrams;
  std::string buffer(LargestDatagram, '\0');
  for (int i = 0; i < LargestBatch; ++i) {
    std::optional<Datagram> next = ReceiveNext(Number(), buffer);
    if (!next) break;
    if (!next->Data.empty()) datagrams.push_back(std::move(*next));
  }
  return datagrams;
}

}  // namespace hostsweep
