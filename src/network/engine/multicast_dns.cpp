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
constexpr std::size_t MostKinds = 256;
constexpr int MostFurther = 8;
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
  hosts_[address] = {device, 0};
  questions_.emplace_back(device, DnsQuestion{ReverseName(address), PointerType});
}

void MulticastDns::Browse(int device) {
  browsed_[device] = {};
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

void MulticastDns::Hear(int device, std::uint32_t sender, std::string_view message) {
  constexpr int Response = 0x8000;
  constexpr int OperationAndResult = 0x780F;
  const std::optional<DnsMessage> read = ReadDnsMessage(message);
  if (!read || (read->Flags & Response) == 0 || (read->Flags & OperationAndResult) != 0) return;
  const Place place(device, sender);
  for (const auto* const records : {&read->Answers, &read->Others}) {
    for (const DnsRecord& record : *records) HearRecord(place, record);
  }
  for (const auto* const records : {&read->Answers, &read->Others}) {
    for (const DnsRecord& record : *records) AskFurther(place, record);
  }
}

void MulticastDns::HearRecord(const Place& sender, const DnsRecord& record) {
  // The highest bit of the class means that there are no other records (RFC 6762, section 10.2); a
  // time to live of 0, that the record is no longer valid (section 10.1).
  constexpr int ClassBits = 0x7FFF;
  const std::uint32_t address = sender.second;
  if ((record.Class & ClassBits) != InternetClass || record.TimeToLive == 0) return;
  const bool isPointer = record.Type == PointerType && IsLocalName(record.Target) &&
                         Folded(record.Owner) == Folded(ReverseName(address));
  const bool isAddress =
      record.Type == AddressType && record.Address == address && IsLocalName(record.Owner);
  if (!isPointer && !isAddress) return;
  if (heard_.size() >= MostHosts && !hosts_.contains(address) && !heard_.contains(sender)) return;
  Names& names = heard_[sender];
  if (isPointer) TakeFirst(names.Pointer, record.Target);
  if (isAddress) TakeFirst(names.Address, record.Owner);
}

// Hosts leave out what another host has said, so the kinds of services are taken from any host, and
// asked for on every device.
void MulticastDns::AskForKind(const std::string& kind) {
  for (auto& [device, browsed] : browsed_) {
    if (browsed.KindCount == MostKinds) continue;
    if (AskOnce(device, {kind, PointerType})) ++browsed.KindCount;
  }
}

void MulticastDns::AskFurther(const Place& sender, const DnsRecord& record) {
  if (record.Type == PointerType && Folded(record.Owner) == Folded(AllServices)) {
    AskForKind(record.Target);
    return;
  }
  const auto& [device, address] = sender;
  const auto host = hosts_.find(address);
  if (host == hosts_.end() || host->second.Device != device || heard_.contains(sender)) return;
  if (host->second.FurtherCount == MostFurther) return;
  if (!IsAsked(device, {record.Owner, record.Type})) return;
  const bool isAsked =
      (record.Type == PointerType && AskOnce(device, {record.Target, ServiceType})) ||
      (record.Type == ServiceType && AskOnce(device, {record.Target, AddressType}));
  if (isAsked) ++host->second.FurtherCount;
}

// Returns false if there is nothing to ask.
bool MulticastDns::AskOnce(int device, DnsQuestion question) {
  if (!IsLocalName(question.Name)) return false;
  auto& questions = browsed_[device].Questions;
  if (!questions.emplace(Folded(question.Name), question.Type).second) return false;
  questions_.emplace_back(device, std::move(question));
  return true;
}

bool MulticastDns::IsAsked(int device, const DnsQuestion& question) const {
  const auto found = browsed_.find(device);
  return found != browsed_.end() &&
         found->second.Questions.contains({Folded(question.Name), question.Type});
}

MulticastDns::Names MulticastDns::NamesOf(std::uint32_t address) const {
  const auto host = hosts_.find(address);
  if (host == hosts_.end()) return {};
  const auto names = heard_.find({host->second.Device, address});
  return names == heard_.end() ? Names() : names->second;
}

std::optional<std::string> MulticastDns::PointerName(std::uint32_t address) const {
  return NamesOf(address).Pointer;
}

std::optional<std::string> MulticastDns::AddressName(std::uint32_t address) const {
  return NamesOf(address).Address;
}

void MulticastDns::Forget(std::uint32_t address) {
  const auto host = hosts_.find(address);
  if (host == hosts_.end()) return;
  heard_.erase({host->second.Device, address});
  hosts_.erase(host);
}

}  // namespace hostsweep
