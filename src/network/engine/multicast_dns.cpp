#include "network/engine/multicast_dns.h"

#include <algorithm>

#include "network/engine/name_text.h"

namespace hostsweep {
namespace {

// The kinds of services that are offered (RFC 6763, section 9).
constexpr const char* AllServices = "_services._dns-sd._udp.local";

// A query with this many reverse lookups has at most 1,372 bytes, and fits into one packet.
constexpr std::size_t MostQuestions = 40;
constexpr std::size_t LargestQuery = 1400;

// Limits to what strangers can make the program ask and remember.
constexpr std::size_t LargestBrowse = 256;
constexpr std::size_t MostHosts = 4096;

bool IsLocalName(const std::string& name) {
  constexpr std::string_view End = ".LOCAL";
  if (name.size() <= End.size()) return false;
  const std::size_t dot = name.size() - End.size();
  if (Folded(name.substr(dot)) != End) return false;
  const std::size_t last = name.find_last_not_of('\\', dot - 1);
  const std::size_t backslashes = dot - 1 - (last == std::string::npos ? dot : last);
  return last != std::string::npos && backslashes % 2 == 0;
}

void TakeFirst(std::optional<std::string>& name, const std::string& other) {
  const std::string text = WithCharacters(other);
  if (!name || text < *name) name = text;
}

}  // namespace

void MulticastDns::Ask(std::uint32_t address, int device) {
  devices_[address] = device;
  questions_.emplace_back(device, DnsQuestion{ReverseName(address), PointerType});
}

void MulticastDns::Browse(int device) {
  browsed_[device].clear();
  AskOnce(device, {AllServices, PointerType});
}

std::optional<MulticastDns::Query> MulticastDns::Next() {
  if (questions_.empty()) return {};
  Query query;
  query.Device = questions_.front().first;
  std::vector<DnsQuestion> questions;
  std::size_t size = 0;
  for (auto next = questions_.begin(); next != questions_.end();) {
    constexpr std::size_t Frame = 6;  // type, class, and what the name takes beside its characters
    const std::size_t more = next->second.Name.size() + Frame;
    if (next->first != query.Device) {
      ++next;
      continue;
    }
    if (questions.size() == MostQuestions || (size > 0 && size + more > LargestQuery)) break;
    size += more;
    questions.push_back(std::move(next->second));
    next = questions_.erase(next);
  }
  query.Message = MakeQuery(questions);
  return query;
}

void MulticastDns::Hear(std::uint32_t sender, std::string_view message) {
  constexpr int Response = 0x8000;
  constexpr int OperationAndResult = 0x780F;
  const std::optional<DnsMessage> read = ReadDnsMessage(message);
  if (!read || (read->Flags & Response) == 0 || (read->Flags & OperationAndResult) != 0) return;
  for (const auto* const records : {&read->Answers, &read->Others}) {
    for (const DnsRecord& record : *records) HearRecord(sender, record);
  }
  for (const auto* const records : {&read->Answers, &read->Others}) {
    for (const DnsRecord& record : *records) AskFurther(sender, record);
  }
}

void MulticastDns::HearRecord(std::uint32_t sender, const DnsRecord& record) {
  // The highest bit of the class means that there are no other records (RFC 6762, section 10.2); a
  // time to live of 0, that the record is no longer valid (section 10.1).
  constexpr int ClassBits = 0x7FFF;
  if ((record.Class & ClassBits) != InternetClass || record.TimeToLive == 0) return;
  const bool isPointer = record.Type == PointerType && IsLocalName(record.Target) &&
                         Folded(record.Owner) == Folded(ReverseName(sender));
  const bool isAddress =
      record.Type == AddressType && record.Address == sender && IsLocalName(record.Owner);
  if (!isPointer && !isAddress) return;
  if (heard_.size() >= MostHosts && !devices_.contains(sender) && !heard_.contains(sender)) return;
  Names& names = heard_[sender];
  if (isPointer) TakeFirst(names.Pointer, record.Target);
  if (isAddress) TakeFirst(names.Address, record.Owner);
}

// Hosts leave out what another host has said, so the kinds of services are taken from any host, and
// asked for on every device. What follows is asked only about the sender.
void MulticastDns::AskFurther(std::uint32_t sender, const DnsRecord& record) {
  const std::string owner = Folded(record.Owner);
  if (record.Type == PointerType && owner == Folded(AllServices)) {
    for (const auto& [device, asked] : browsed_) AskOnce(device, {record.Target, PointerType});
    return;
  }
  const auto found = devices_.find(sender);
  if (found == devices_.end() || heard_.contains(sender)) return;
  const int device = found->second;
  if (!IsAsked(device, {record.Owner, record.Type})) return;
  if (record.Type == PointerType) AskOnce(device, {record.Target, ServiceType});
  if (record.Type == ServiceType) AskOnce(device, {record.Target, AddressType});
}

void MulticastDns::AskOnce(int device, DnsQuestion question) {
  auto& asked = browsed_[device];
  if (!IsLocalName(question.Name) || asked.size() >= LargestBrowse) return;
  if (!asked.emplace(Folded(question.Name), question.Type).second) return;
  questions_.emplace_back(device, std::move(question));
}

bool MulticastDns::IsAsked(int device, const DnsQuestion& question) const {
  const auto found = browsed_.find(device);
  return found != browsed_.end() && found->second.contains({Folded(question.Name), question.Type});
}

std::optional<std::string> MulticastDns::PointerName(std::uint32_t address) const {
  const auto found = heard_.find(address);
  return found == heard_.end() ? std::nullopt : found->second.Pointer;
}

std::optional<std::string> MulticastDns::AddressName(std::uint32_t address) const {
  const auto found = heard_.find(address);
  return found == heard_.end() ? std::nullopt : found->second.Address;
}

void MulticastDns::Forget(std::uint32_t address) {
  devices_.erase(address);
  heard_.erase(address);
}

}  // namespace hostsweep
