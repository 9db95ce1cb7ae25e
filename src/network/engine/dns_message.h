// Messages of the DNS (RFC 1035, section 4.1), which multicast DNS uses, too (RFC 6762, section
// 18). Names are texts without a final dot, as host(1) writes them: "\DDD", three decimal digits,
// for a byte that is not printable ASCII or is a space, and "\" before a character that is special
// in zone files. The name of the root domain is empty.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hostsweep {

// Types of records, and their class for the internet (RFC 1035, sections 3.2.2 and 3.2.4; RFC
// 2782).
constexpr int AddressType = 1;
constexpr int AliasType = 5;
constexpr int PointerType = 12;
constexpr int ServiceType = 33;
constexpr int InternetClass = 1;

struct DnsRecord {
  std::string Owner;
  int Type = 0;
  int Class = 0;
  std::uint32_t TimeToLive = 0;  // in seconds
  std::string Target;            // the name that a pointer, an alias or a service leads to
  std::uint32_t Address = 0;     // of an address record, in host byte order
};

struct DnsMessage {
  int Flags = 0;
  std::vector<DnsRecord> Answers;
  std::vector<DnsRecord> Others;  // of the sections after the answers
};

// The message in these bytes, without its questions; nothing if the questions or the answers cannot
// be read. The sections after the answers end at the first part that cannot be read. Records of
// other types, and records whose data cannot be read, are left out.
std::optional<DnsMessage> ReadDnsMessage(std::string_view bytes);

// The same name in upper case, for comparison: the letter case of a name means nothing.
std::string Folded(std::string name);

// The name that a reverse lookup of the address asks for: 7.0.50.10.in-addr.arpa (RFC 1035, section
// 3.5).
std::string ReverseName(std::uint32_t address);

struct DnsQuestion {
  std::string Name;
  int Type = 0;
  friend bool operator==(const DnsQuestion&, const DnsQuestion&) = default;
};

// A multicast DNS query with these questions: its identifier and flags are 0. Questions whose names
// cannot be encoded are left out.
std::string MakeQuery(const std::vector<DnsQuestion>& questions);

}  // namespace hostsweep
