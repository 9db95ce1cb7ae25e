#include "network/plan/network.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>

#include "network/plan/address.h"
#include "network/plan/decimal.h"
#include "network/plan/usage_error.h"

namespace hostsweep {
namespace {

constexpr std::uint32_t LongestPrefix = 32;
constexpr std::uint64_t LargestRange = 65536;

std::uint32_t AddressIn(std::string_view text, const std::string& argument) {
  const std::optional<std::uint32_t> address = ParseAddress(text);
  if (address) return *address;
  throw UsageError(argument, std::string("not a network like ") + NetworkExamples);
}

Network ParsePrefix(const std::string& argument, std::size_t slash) {
  const std::uint32_t address = AddressIn(std::string_view(argument).substr(0, slash), argument);
  const std::optional<std::uint32_t> length =
      ParseDecimal(std::string_view(argument).substr(slash + 1), LongestPrefix);
  if (length && *length >= ShortestPrefix) return NetworkOf(address, *length);
  throw UsageError(argument, "the prefix length must be from 16 to 32");
}

Network ParseRange(const std::string& argument, std::size_t hyphen) {
  const std::string_view text = argument;
  const std::string_view end = text.substr(hyphen + 1);
  Network range = {argument, AddressIn(text.substr(0, hyphen), argument), 0};
  const std::optional<std::uint32_t> lastPart = ParseDecimal(end, 255);
  range.Last = lastPart ? (range.First & ~0xFFU) | *lastPart : AddressIn(end, argument);
  if (range.First > range.Last) throw UsageError(argument, "the range ends before it begins");
  if (CountAddresses(range) <= LargestRange) return range;
  throw UsageError(argument, "a range can have at most 65536 addresses");
}

// The network of a text without "/" and "-".
Network ParsePlain(const std::string& argument) {
  const std::optional<std::uint32_t> network = ParseAddress(argument + ".0");
  if (network) return NetworkOf(*network, 24);
  const std::uint32_t address = AddressIn(argument, argument);
  return {argument, address, address};
}

Network ParseForm(const std::string& argument) {
  const std::size_t mark = argument.find_first_of("/-");
  if (mark == std::string::npos) return ParsePlain(argument);
  return argument[mark] == '/' ? ParsePrefix(argument, mark) : ParseRange(argument, mark);
}

}  // namespace

bool IsNumeric(std::string_view argument) {
  return argument.find_first_not_of("0123456789./-") == std::string_view::npos;
}

Network ParseNetwork(const std::string& argument) {
  Network network = ParseForm(argument);
  network.Name = argument;
  return network;
}

Network NetworkOf(std::uint32_t address, std::uint32_t prefixLength) {
  const auto hostBits = static_cast<std::uint32_t>((1ULL << (32 - prefixLength)) - 1);
  const std::uint32_t first = address & ~hostBits;
  const std::uint32_t leftOut = prefixLength <= 30 ? 1 : 0;
  return {FormatAddress(first) + '/' + std::to_string(prefixLength), first + leftOut,
          (first | hostBits) - leftOut};
}

std::vector<Network> WithoutRepeats(const std::vector<Network>& networks) {
  std::vector<Network> parts;
  std::map<std::uint64_t, std::uint64_t> taken;  // each range: the address after it, and its first
  for (const Network& network : networks) {
    std::uint64_t next = network.First;
    const std::uint64_t end = std::uint64_t{network.Last} + 1;
    const auto addUpTo = [&](std::uint64_t limit) {
      if (next >= limit) return;
      parts.push_back(
          {network.Name, static_cast<std::uint32_t>(next), static_cast<std::uint32_t>(limit - 1)});
    };
    for (auto range = taken.upper_bound(next); range != taken.end() && range->second < end;) {
      addUpTo(range->second);
      next = std::max(next, range->first);
      ++range;
    }
    addUpTo(end);
    std::uint64_t first = network.First;
    std::uint64_t last = end;
    for (auto range = taken.lower_bound(first); range != taken.end() && range->second <= end;) {
      first = std::min(first, range->second);
      last = std::max(last, range->first);
      range = taken.erase(range);
    }
    taken[last] = first;
  }
  return parts;
}

std::uint64_t CountAddresses(const Network& network) {
  return std::uint64_t{network.Last} - network.First + 1;
}

}  // namespace hostsweep
