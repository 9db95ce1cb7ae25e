#include "platform/network/probe_sockets.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <random>
#include <string_view>
#include <utility>

#include "platform/network/probe_errors.h"
#include "platform/network/socket_address.h"
#include "platform/system_call.h"

namespace hostsweep {
namespace {

// While ARP is pending, Linux lets a socket hold some 270 datagrams. It asks for at most 1024
// addresses at a time, unless the administrator has allowed more.
constexpr std::size_t MaximalSockets = 8;

constexpr std::uint16_t DiscardPort = 9;

// An ICMP echo message (RFC 792) begins with type, code, checksum, identifier and sequence number.
constexpr std::size_t EchoHeaderSize = 8;
constexpr char EchoRequest = 8;
constexpr char EchoReply = 0;

// RFC 1071. The size of the message is even.
std::uint16_t Checksum(const std::string& message) {
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < message.size(); i += 2) {
    std::uint16_t word = 0;
    std::memcpy(&word, message.data() + i, sizeof word);
    sum += word;
  }
  while (sum > 0xFFFF) sum = (sum & 0xFFFF) + (sum >> 16U);
  return static_cast<std::uint16_t>(~sum);
}

// An echo request that nobody else sends: its identifier and its data are random. Linux puts in an
// identifier of its own.
std::string MakeRequest() {
  std::random_device random;
  std::string request = {EchoRequest, 0, 0, 0};
  for (int i = 0; i < 3; ++i) {
    const std::uint32_t word = random();
    request.append(reinterpret_cast<const char*>(&word), sizeof word);
  }
  const std::uint16_t checksum = Checksum(request);
  std::memcpy(request.data() + 2, &checksum, sizeof checksum);
  return request;
}

// A socket that does not wait; errno says why if its number is negative.
Descriptor OpenSocket(int protocol) {
  Descriptor socket(::socket(AF_INET, SOCK_DGRAM, protocol));
  if (socket.Number() < 0) return socket;
  fcntl(socket.Number(), F_SETFD, FD_CLOEXEC);
  if (fcntl(socket.Number(), F_SETFL, O_NONBLOCK) != 0) return Descriptor(-1);
  KeepErrors(socket.Number());
  return socket;
}

ssize_t SendTo(int socket, const std::string& data, std::uint32_t address) {
  const sockaddr target = SocketAddress(address, DiscardPort);
  return RetryInterrupted(
      [&] { return sendto(socket, data.data(), data.size(), 0, &target, sizeof target); });
}

SendResult SendBy(int socket, const std::string& data, std::uint32_t address) {
  constexpr int Attempts = 16;  // errors of earlier datagrams can arrive meanwhile
  for (int i = 0; i < Attempts; ++i) {
    if (SendTo(socket, data, address) >= 0) return SendResult::Sent;
    if (const std::optional<SendResult> meaning = MeaningOf(errno)) return *meaning;
  }
  return SendResult::Unreachable;
}

}  // namespace

ProbeSockets::ProbeSockets() { Open(); }

void ProbeSockets::Open() {
  if (TryOpen()) return;
  const bool isRefused = isEcho_ && errno != EMFILE && errno != ENFILE && errno != ENOMEM;
  if (isRefused) isEcho_ = false;
  if (!isRefused || !TryOpen()) ThrowSystemError("socket");
}

bool ProbeSockets::TryOpen() {
  Descriptor socket = OpenSocket(isEcho_ ? IPPROTO_ICMP : IPPROTO_UDP);
  if (socket.Number() < 0) return false;
  sockets_.push_back(std::move(socket));
  if (isEcho_ && request_.empty()) request_ = MakeRequest();
  return true;
}

SendResult ProbeSockets::Send(std::uint32_t address) {
  const std::size_t count = sockets_.size();
  for (std::size_t i = 0; i < count; ++i) {
    const SendResult result = SendBy(sockets_[current_].Number(), request_, address);
    if (result != SendResult::NoRoom) return result;
    current_ = (current_ + 1) % count;
  }
  if (count == MaximalSockets || !TryOpen()) return SendResult::NoRoom;
  current_ = count;
  return SendBy(sockets_[current_].Number(), request_, address);
}

std::vector<ProbeAnswer> ProbeSockets::Receive() {
  std::vector<ProbeAnswer> answers;
  for (const Descriptor& socket : sockets_) {
    ReceiveFrom(socket.Number(), answers);
    while (const std::optional<ProbeAnswer> error = ReadError(socket.Number())) {
      answers.push_back(*error);
    }
  }
  return answers;
}

void ProbeSockets::ReceiveFrom(int socket, std::vector<ProbeAnswer>& answers) const {
  constexpr int LargestBatch = 4096;  // what comes after it is received the next time
  for (int i = 0; i < LargestBatch; ++i) {
    std::array<char, 128> data{};
    sockaddr sender{};
    socklen_t length = sizeof sender;
    const ssize_t size = RetryInterrupted(
        [&] { return recvfrom(socket, data.data(), data.size(), 0, &sender, &length); });
    if (size < 0 && errno == EAGAIN) return;
    if (size < 0) continue;  // an ICMP error that is also in the queue of errors
    const auto answer = AnswerIn({data.data(), static_cast<std::size_t>(size)}, AddressIn(&sender));
    if (answer) answers.push_back(*answer);
  }
}

std::optional<ProbeAnswer> ProbeSockets::AnswerIn(std::string_view received,
                                                  std::uint32_t sender) const {
  if (!isEcho_) return ProbeAnswer{sender, sender};
  const std::string_view reply = IcmpMessageIn(received);
  if (reply.size() != request_.size() || reply[0] != EchoReply) return {};
  if (reply.substr(EchoHeaderSize) != std::string_view(request_).substr(EchoHeaderSize)) return {};
  return ProbeAnswer{sender, sender};
}

}  // namespace hostsweep
