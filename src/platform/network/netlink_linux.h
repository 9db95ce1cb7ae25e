// Linux: requests to the kernel's tables of devices, addresses, routes and neighbours,
// rtnetlink(7).
#pragma once

#include <linux/netlink.h>
#include <linux/rtnetlink.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/descriptor.h"

namespace hostsweep {

// The bytes of an object, as the kernel takes them.
template <typename Object>
std::string_view BytesOf(const Object& object) {
  static_assert(std::is_trivially_copyable_v<Object>);
  return {reinterpret_cast<const char*>(&object), sizeof object};
}

// The object at the beginning of the bytes; nothing if they are too few.
template <typename Object>
std::optional<Object> ObjectIn(std::string_view bytes) {
  static_assert(std::is_trivially_copyable_v<Object>);
  Object object{};
  if (bytes.size() < sizeof object) return {};
  std::memcpy(&object, bytes.data(), sizeof object);
  return object;
}

// One message from the kernel: its type, and a fixed part `Head` that attributes follow.
template <typename Head>
struct NetlinkMessage {
  Head Fixed{};
  std::string_view Attributes;

  // The value of the first attribute of this type; empty if there is none.
  [[nodiscard]] std::string_view Value(unsigned short type) const {
    std::string_view rest = Attributes;
    while (const auto attribute = ObjectIn<rtattr>(rest)) {
      const std::size_t size = attribute->rta_len;
      if (size < sizeof(rtattr) || size > rest.size()) break;
      if (attribute->rta_type == type) return rest.substr(RTA_LENGTH(0), size - RTA_LENGTH(0));
      rest.remove_prefix(std::min<std::size_t>(RTA_ALIGN(size), rest.size()));
    }
    return {};
  }

  // That value as a number; nothing if it has fewer than four bytes.
  [[nodiscard]] std::optional<std::uint32_t> Number(unsigned short type) const {
    return ObjectIn<std::uint32_t>(Value(type));
  }
};

// The message with this body, which is its bytes after the header; nothing if they are too few.
template <typename Head>
std::optional<NetlinkMessage<Head>> MessageIn(std::string_view body) {
  const auto head = ObjectIn<Head>(body);
  if (!head) return {};
  return NetlinkMessage<Head>{
      *head, body.substr(std::min<std::size_t>(NLMSG_ALIGN(sizeof *head), body.size()))};
}

// A connection to the kernel.
class Netlink {
 public:
  using Receiver = std::function<void(unsigned int type, std::string_view body)>;

  // `groups`: the notifications to receive, as RTMGRP_ bits. Throws `std::system_error` if the
  // kernel cannot be connected to.
  explicit Netlink(std::uint32_t groups = 0);

  // Asks for one object. `body` is the fixed part of the request and its attributes. Gives the
  // answer to `receive`, and returns 0, or the error number with which the kernel refuses. Throws
  // `std::system_error` if the kernel cannot be asked.
  int Get(unsigned short type, const std::string& body, const Receiver& receive);

  // Asks for all objects in the same way.
  int List(unsigned short type, const std::string& body, const Receiver& receive);

  // Gives `receive` the notifications that have arrived, without waiting. Returns false if some
  // have been lost.
  bool ReadNotifications(const Receiver& receive);

 private:
  int Ask(unsigned short type, unsigned short flags, const std::string& body,
          const Receiver& receive);
  std::string_view Receive();

  Descriptor socket_;
  std::string buffer_;
  std::uint32_t sequence_ = 0;
};

// An attribute of a request, with the padding after it.
std::string Attribute(unsigned short type, std::string_view value);

}  // namespace hostsweep
