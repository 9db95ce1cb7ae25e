#include "network/engine/net_bios.h"

#include <cstddef>

#include "network/engine/name_text.h"

namespace hostsweep {
namespace {

// "*" and 15 null characters, with a letter for each half of a byte (RFC 1001, section 14.1).
constexpr std::string_view WildcardName(
    "\x20"
    "CKAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA\0",
    34);
constexpr int NodeStatusType = 0x21;
constexpr int InternetClass = 1;
constexpr std::size_t HeaderSize = 12;

int Short(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]) << 8 | static_cast<unsigned char>(bytes[at + 1]);
}

std::string Encoded(int number) {
  return {static_cast<char>(number >> 8), static_cast<char>(number & 0xFF)};
}

// An entry of the list of names: 15 characters, the type and the flags.
constexpr std::size_t NameSize = 15;
constexpr std::size_t EntrySize = 18;

bool IsHostName(std::string_view entry) {
  constexpr int Group = 0x8000;
  constexpr int Deregistering = 0x1000;
  constexpr int Conflict = 0x0800;
  return entry[NameSize] == 0 &&
         (Short(entry, NameSize + 1) & (Group | Deregistering | Conflict)) == 0;
}

}  // namespace

std::string NodeStatusRequest(std::uint16_t identifier) {
  const std::string none = Encoded(0);
  return Encoded(identifier) + none + Encoded(1) + none + none + none + std::string(WildcardName) +
         Encoded(NodeStatusType) + Encoded(InternetClass);
}

std::optional<std::string> NodeNameIn(std::string_view message, std::uint16_t identifier) {
  constexpr int Response = 0x8000;
  constexpr int OperationAndResult = 0x780F;
  constexpr std::size_t CountAt = HeaderSize + WildcardName.size() + 10;
  if (message.size() <= CountAt || Short(message, 0) != identifier) return {};
  const int flags = Short(message, 2);
  if ((flags & Response) == 0 || (flags & OperationAndResult) != 0) return {};
  // No question and one answer, for the name that was asked for.
  if (Short(message, 4) != 0 || Short(message, 6) != 1) return {};
  const std::string_view record = message.substr(HeaderSize);
  if (record.substr(0, WildcardName.size()) != WildcardName) return {};
  if (Short(record, WildcardName.size()) != NodeStatusType) return {};
  const std::size_t count = static_cast<unsigned char>(message[CountAt]);
  std::string_view entries = message.substr(CountAt + 1);
  for (std::size_t i = 0; i < count && entries.size() >= EntrySize; ++i) {
    const std::string_view name = entries.substr(0, NameSize);
    const std::size_t size = name.find_last_not_of(std::string_view(" \0", 2)) + 1;
    if (IsHostName(entries) && size > 0) return NameText(name.substr(0, size));
    entries.remove_prefix(EntrySize);
  }
  return {};
}

}  // namespace hostsweep
