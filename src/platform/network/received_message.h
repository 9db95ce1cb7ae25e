// A message as recvmsg(2) gives it, with what the system says of it beside its data.
#pragma once

#include <sys/socket.h>
#include <sys/uio.h>

#include <array>
#include <cstddef>

#include "platform/system_call.h"

namespace hostsweep {

class ReceivedMessage {
 public:
  // `data` has room for `size` bytes, and must outlive this object.
  ReceivedMessage(char* data, std::size_t size) : part_{data, size} {
    header_.msg_name = &address_;
    header_.msg_namelen = sizeof address_;
    header_.msg_iov = &part_;
    header_.msg_iovlen = 1;
    header_.msg_control = control_.data();
    header_.msg_controllen = sizeof control_;
  }
  ReceivedMessage(const ReceivedMessage&) = delete;
  ReceivedMessage& operator=(const ReceivedMessage&) = delete;

  // Receives the next message, once. Returns its size in bytes; -1, with errno set, on failure.
  ssize_t Receive(int socket, int flags) {
    return RetryInterrupted([&] { return recvmsg(socket, &header_, flags); });
  }

  // After `Receive`: the address that came with the message, and its flags and control messages.
  [[nodiscard]] const sockaddr& Address() const { return address_; }
  [[nodiscard]] msghdr& Header() { return header_; }

 private:
  sockaddr address_{};
  iovec part_;
  alignas(cmsghdr) std::array<char, 512> control_{};
  msghdr header_{};
};

}  // namespace hostsweep
