#include "platform/network/datagram_socket.h"

#include <fcntl.h>

#include <cerrno>

#include "platform/network/socket_address.h"
#include "platform/system_call.h"

namespace hostsweep {
namespace {

int OpenSocket() {
  const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
  if (socket < 0) ThrowSystemError("socket");
  fcntl(socket, F_SETFD, FD_CLOEXEC);
  fcntl(socket, F_SETFL, O_NONBLOCK);
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

bool IsPassing(int error) {
  return error == EAGAIN || error == EWOULDBLOCK || error == ENOBUFS || error == ENOMEM;
}

}  // namespace

DatagramSocket::DatagramSocket() : socket_(OpenSocket()) {}

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
  constexpr std::size_t LargestBatch = 256;
  constexpr std::size_t LargestDatagram = 65536;
  std::vector<Datagram> datagrams;
  std::string data(LargestDatagram, '\0');
  while (datagrams.size() < LargestBatch) {
    sockaddr sender{};
    socklen_t length = sizeof sender;
    const ssize_t size = RetryInterrupted(
        [&] { return recvfrom(Number(), data.data(), data.size(), 0, &sender, &length); });
    if (size < 0) break;
    datagrams.push_back(
        {AddressIn(&sender), PortIn(sender), data.substr(0, static_cast<std::size_t>(size))});
  }
  return datagrams;
}

}  // namespace hostsweep
