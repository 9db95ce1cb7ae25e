#include "platform/network/netlink_linux.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/uio.h>

#include <algorithm>
#include <cerrno>

#include "platform/system_call.h"

namespace hostsweep {
namespace {

// The largest part of a list that the kernel sends at once (netlink_dump in its
// net/netlink/af_netlink.c).
constexpr std::size_t LargestPart = 32768;

int OpenSocket() {
  const int socket = ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE);
  if (socket < 0) ThrowSystemError("netlink");
  return socket;
}

struct Part {
  nlmsghdr Header{};
  std::string_view Body;
};

// Takes the first message from the bytes; nothing if there is no whole one.
std::optional<Part> TakeFirst(std::string_view& bytes) {
  const auto header = ObjectIn<nlmsghdr>(bytes);
  if (!header || header->nlmsg_len < NLMSG_HDRLEN || header->nlmsg_len > bytes.size()) return {};
  const Part part = {*header, bytes.substr(NLMSG_HDRLEN, header->nlmsg_len - NLMSG_HDRLEN)};
  bytes.remove_prefix(std::min<std::size_t>(NLMSG_ALIGN(header->nlmsg_len), bytes.size()));
  return part;
}

}  // namespace

Netlink::Netlink(std::uint32_t groups) : socket_(OpenSocket()), buffer_(LargestPart, '\0') {
  if (groups == 0) return;
  sockaddr_nl address{};
  address.nl_family = AF_NETLINK;
  address.nl_groups = groups;
  sockaddr generic{};
  static_assert(sizeof generic >= sizeof address);
  std::memcpy(&generic, &address, sizeof address);
  if (bind(socket_.Number(), &generic, sizeof address) != 0) ThrowSystemError("netlink");
  if (fcntl(socket_.Number(), F_SETFL, O_NONBLOCK) != 0) ThrowSystemError("netlink");
}

int Netlink::Get(unsigned short type, const std::string& body, const Receiver& receive) {
  return Ask(type, NLM_F_REQUEST, body, receive);
}

int Netlink::List(unsigned short type, const std::string& body, const Receiver& receive) {
  return Ask(type, NLM_F_REQUEST | NLM_F_DUMP, body, receive);
}

int Netlink::Ask(unsigned short type, unsigned short flags, const std::string& body,
                 const Receiver& receive) {
  nlmsghdr header{};
  header.nlmsg_len = static_cast<std::uint32_t>(NLMSG_HDRLEN + body.size());
  header.nlmsg_type = type;
  header.nlmsg_flags = flags;
  header.nlmsg_seq = ++sequence_;
  const std::string request = std::string(BytesOf(header)) + body;
  // Emulators of other processors know few netlink messages, and pass on vectors as they are.
  const iovec vector = {const_cast<char*>(request.data()), request.size()};
  if (RetryInterrupted([&] { return writev(socket_.Number(), &vector, 1); }) < 0) {
    ThrowSystemError("netlink");
  }
  for (;;) {
    std::string_view bytes = Receive();
    while (const std::optional<Part> part = TakeFirst(bytes)) {
      if (part->Header.nlmsg_seq != sequence_) continue;
      const bool isEnd = part->Header.nlmsg_type == NLMSG_DONE;
      if (isEnd || part->Header.nlmsg_type == NLMSG_ERROR) {
        const auto error = ObjectIn<int>(part->Body);  // a list can end without one
        return error ? -*error : (isEnd ? 0 : EPROTO);
      }
      receive(part->Header.nlmsg_type, part->Body);
      if ((flags & NLM_F_DUMP) != NLM_F_DUMP) return 0;
    }
  }
}

std::string_view Netlink::Receive() {
  const iovec vector = {buffer_.data(), buffer_.size()};
  const ssize_t size = RetryInterrupted([&] { return readv(socket_.Number(), &vector, 1); });
  if (size < 0) ThrowSystemError("netlink");
  return std::string_view(buffer_).substr(0, static_cast<std::size_t>(size));
}

bool Netlink::ReadNotifications(const Receiver& receive) {
  bool areAllThere = true;
  for (;;) {
    const iovec vector = {buffer_.data(), buffer_.size()};
    const ssize_t size = RetryInterrupted([&] { return readv(socket_.Number(), &vector, 1); });
    if (size < 0 && errno == ENOBUFS) {
      areAllThere = false;
      continue;
    }
    if (size < 0 && errno != EAGAIN) ThrowSystemError("netlink");
    if (size <= 0) return areAllThere;
    std::string_view bytes = std::string_view(buffer_).substr(0, static_cast<std::size_t>(size));
    while (const std::optional<Part> part = TakeFirst(bytes)) {
      receive(part->Header.nlmsg_type, part->Body);
    }
  }
}

std::string Attribute(unsigned short type, std::string_view value) {
  rtattr head{};
  head.rta_type = type;
  head.rta_len = static_cast<unsigned short>(RTA_LENGTH(value.size()));
  std::string attribute = std::string(BytesOf(head)) + std::string(value);
  attribute.resize(RTA_SPACE(value.size()), '\0');
  return attribute;
}

}  // namespace hostsweep
