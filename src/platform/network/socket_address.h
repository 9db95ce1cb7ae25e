// IPv4 addresses as sockets take and give them. Addresses are numbers in host byte order.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace hostsweep {

inline sockaddr SocketAddress(std::uint32_t address, std::uint16_t port) {
  sockaddr_in specific{};
  specific.sin_family = AF_INET;
  specific.sin_port = htons(port);
  specific.sin_addr.s_addr = htonl(address);
  sockaddr generic{};
  std::memcpy(&generic, &specific, sizeof specific);
  return generic;
}

// `address` points to at least the bytes of a `sockaddr_in` up to the end of its address.
inline std::uint32_t AddressIn(const void* address) {
  sockaddr_in specific{};
  std::memcpy(&specific, address, offsetof(sockaddr_in, sin_addr) + sizeof specific.sin_addr);
  return ntohl(specific.sin_addr.s_addr);
}

inline std::uint16_t PortIn(const sockaddr& address) {
  sockaddr_in specific{};
  std::memcpy(&specific, &address, sizeof specific);
  return ntohs(specific.sin_port);
}

}  // namespace hostsweep
