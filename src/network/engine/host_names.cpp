#include "network/engine/host_names.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <system_error>

#include "network/engine/net_bios.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;

// A host answers within a tenth of a second (RFC 6762, section 6), and a browse takes up to four
// answers.
constexpr milliseconds LeastTime(500);
constexpr milliseconds MostTime(2000);

// A question may not be repeated sooner, and each time only after twice the interval (RFC 6762,
// section 5.2).
constexpr milliseconds RepeatTime(1000);

// Questions about hosts that are found within this time go into one packet.
constexpr milliseconds GatherTime(20);

}  // namespace

HostNames::HostNames() : identifier_(static_cast<std::uint16_t>(std::random_device()())) {}

void HostNames::Ask(std::uint64_t key, std::uint32_t address, int device, Clock::time_point now) {
  if (!Open()) {
    results_.push_back({key, {}, NameSource::None, Trouble::Lack});
    return;
  }
  asked_[address] = {key, device, {}};
  ends_.emplace_back(now, address);
  repeats_.emplace_back(now, address);
  AskNow(address, device, now);
  EndIfSure(address);
}

// Returns false if the system gives no socket.
bool HostNames::Open() {
  if (anyPort_) return true;
  try {
    DatagramSocket ownPort;
    anyPort_.emplace();
    if (ownPort.ShareGroup(MulticastDnsGroup, MulticastDnsPort)) {
      ownPort_.emplace(std::move(ownPort));
    }
  } catch (const std::system_error&) {
    return false;
  }
  return true;
}

void HostNames::AskNow(std::uint32_t address, int device, Clock::time_point now) {
  requests_.push_back(address);
  if (device != 0) {
    BrowseOn(device, now);
    multicastDns_.Ask(address, device);
  }
  if (!nextSend_) nextSend_ = now + GatherTime;
}

// Asks for the services on the device, unless that was done lately.
void HostNames::BrowseOn(int device, Clock::time_point now) {
  const auto [found, isFirst] = browses_.try_emplace(device, Browse{now, RepeatTime});
  if (isFirst && ownPort_) ownPort_->Join(MulticastDnsGroup, device);
  Browse& browse = found->second;
  if (!isFirst && now - browse.Last < browse.Interval) return;
  if (!isFirst) browse = {now, 2 * browse.Interval};
  multicastDns_.Browse(device);
}

void HostNames::Proceed(Clock::time_point now, bool isWaiting) {
  Receive();
  AskAgain(now);
  if (multicastDns_.HasNext() && !nextSend_) nextSend_ = now + GatherTime;
  if (nextSend_ && *nextSend_ <= now) Send(now);
  const milliseconds time = isWaiting ? MostTime : LeastTime;
  while (!ends_.empty() && now - ends_.front().first >= time) {
    End(ends_.front().second);
    ends_.pop_front();
  }
}

void HostNames::Receive() {
  for (const auto* const socket : {&ownPort_, &anyPort_}) {
    if (!*socket) continue;
    for (const Datagram& datagram : (*socket)->Receive()) {
      // Answers from other ports are to be ignored (RFC 6762, section 6).
      if (datagram.Port == MulticastDnsPort) ReceiveMulticastDns(datagram);
      if (datagram.Port == NetBiosPort) ReceiveNetBios(datagram);
    }
  }
}

void HostNames::ReceiveMulticastDns(const Datagram& datagram) {
  const auto asked = asked_.find(datagram.Sender);
  // This machine's own answers come by a device of their own.
  const bool isOwn = datagram.Device == LoopbackDevice && asked != asked_.end();
  multicastDns_.Hear(isOwn ? asked->second.Device : datagram.Device, datagram.Sender,
                     datagram.Data);
  EndIfSure(datagram.Sender);
}

void HostNames::ReceiveNetBios(const Datagram& datagram) {
  const auto found = asked_.find(datagram.Sender);
  if (found == asked_.end()) return;
  const std::optional<std::string> name = NodeNameIn(datagram.Data, identifier_);
  if (name) found->second.NetBiosName = name;
}

void HostNames::AskAgain(Clock::time_point now) {
  while (!repeats_.empty() && now - repeats_.front().first >= RepeatTime) {
    const std::uint32_t address = repeats_.front().second;
    repeats_.pop_front();
    const auto found = asked_.find(address);
    if (found != asked_.end()) AskNow(address, found->second.Device, now);
  }
}

void HostNames::Send(Clock::time_point now) {
  nextSend_.reset();
  if (!SendQueries() || !SendRequests()) nextSend_ = now + GatherTime;
}

// Returns false if there is something left to send later.
bool HostNames::SendQueries() {
  for (;;) {
    if (!query_) query_ = multicastDns_.Next();
    if (!query_) return true;
    for (const auto* const socket : {&ownPort_, &anyPort_}) {
      const bool isSent = !*socket || (*socket)->SendToGroup(query_->Message, MulticastDnsGroup,
                                                             MulticastDnsPort, query_->Device);
      if (!isSent) return false;
    }
    query_.reset();
  }
}

// Returns false if there is something left to send later.
bool HostNames::SendRequests() {
  const std::string request = NodeStatusRequest(identifier_);
  while (!requests_.empty()) {
    const bool isOpen = asked_.contains(requests_.front());
    if (isOpen && !anyPort_->Send(request, requests_.front(), NetBiosPort)) return false;
    requests_.pop_front();
  }
  return true;
}

// A pointer record has the name that the host itself has chosen: no better name can come.
void HostNames::EndIfSure(std::uint32_t address) {
  if (asked_.contains(address) && multicastDns_.PointerName(address)) End(address);
}

void HostNames::End(std::uint32_t address) {
  const auto found = asked_.find(address);
  if (found == asked_.end()) return;
  NameResult result;
  result.Key = found->second.Key;
  result.Name = multicastDns_.PointerName(address);
  if (!result.Name) result.Name = multicastDns_.AddressName(address);
  if (result.Name) result.Source = NameSource::Mdns;
  if (!result.Name && found->second.NetBiosName) {
    result.Name = found->second.NetBiosName;
    result.Source = NameSource::NetBios;
  }
  multicastDns_.Forget(address);
  asked_.erase(found);
  results_.push_back(std::move(result));
}

void HostNames::Watch(std::vector<Watched>& descriptors) const {
  for (const auto* const socket : {&ownPort_, &anyPort_}) {
    if (*socket) descriptors.push_back({(*socket)->Number(), true, false});
  }
}

std::optional<Clock::time_point> HostNames::NextTime(bool isWaiting) const {
  std::optional<Clock::time_point> next = nextSend_;
  const auto wakeAt = [&](Clock::time_point time) { next = std::min(next.value_or(time), time); };
  if (!ends_.empty()) wakeAt(ends_.front().first + (isWaiting ? MostTime : LeastTime));
  if (!repeats_.empty()) wakeAt(repeats_.front().first + RepeatTime);
  return next;
}

}  // namespace hostsweep
