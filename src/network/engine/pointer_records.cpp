#include "network/engine/pointer_records.h"

#include <ares.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

#include "network/plan/address.h"
#include "platform/text/characters.h"

namespace hostsweep {
namespace {

constexpr std::size_t HeaderSize = 12;
constexpr int AliasType = 5;  // CNAME

// What goes on from one part of a message to the next. After a part that cannot be read nothing
// more can be, and `HasFailed` holds.
class MessageReader {
 public:
  explicit MessageReader(std::string_view message) : message_(message) {}

  [[nodiscard]] bool HasFailed() const { return hasFailed_; }

  // A number of so many bytes, the highest first.
  int Number(std::size_t size) {
    int number = 0;
    for (const char byte : Skip(size)) number = number * 256 + static_cast<unsigned char>(byte);
    return number;
  }

  // The next bytes; none if they are too few.
  std::string_view Skip(std::size_t size) {
    hasFailed_ = hasFailed_ || size > message_.size() - position_;
    if (hasFailed_) return {};
    position_ += size;
    return message_.substr(position_ - size, size);
  }

  // A name, which can go on elsewhere in the message.
  std::string Name() {
    char* expanded = nullptr;
    long size = 0;
    const auto* const begin = reinterpret_cast<const unsigned char*>(message_.data());
    hasFailed_ = hasFailed_ || position_ >= message_.size() ||
                 ares_expand_name(begin + position_, begin, static_cast<int>(message_.size()),
                                  &expanded, &size) != ARES_SUCCESS;
    if (hasFailed_) return {};
    std::string name = expanded;
    ares_free_string(expanded);
    Skip(static_cast<std::size_t>(size));
    return name;
  }

 private:
  std::string_view message_;
  std::size_t position_ = 0;
  bool hasFailed_ = false;
};

// Names are the same in either letter case.
std::string Folded(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(), AsciiUpper);
  return name;
}

// c-ares leaves a space as it is, where host(1) writes its number.
std::string WithoutSpaces(const std::string& name) {
  std::string text;
  for (const char byte : name) byte == ' ' ? text += "\\032" : text += byte;
  return text;
}

struct Records {
  std::map<std::string, std::string> Aliases;
  std::multimap<std::string, std::string> Pointers;
};

void ReadRecord(MessageReader& reader, Records& records) {
  const std::string owner = Folded(reader.Name());
  const int type = reader.Number(2);
  const int recordClass = reader.Number(2);
  reader.Skip(4);  // how long it may be kept
  const auto size = static_cast<std::size_t>(reader.Number(2));
  MessageReader data = reader;
  reader.Skip(size);
  if (reader.HasFailed() || recordClass != InternetClass) return;
  if (type == AliasType) records.Aliases.emplace(owner, Folded(data.Name()));
  if (type == PointerType) {
    const std::string target = data.Name();
    if (!data.HasFailed()) records.Pointers.emplace(owner, WithoutSpaces(target));
  }
}

}  // namespace

std::string ReverseName(std::uint32_t address) {
  const std::uint32_t reversed = (address & 0xFFU) << 24U | (address & 0xFF00U) << 8U |
                                 (address >> 8U & 0xFF00U) | address >> 24U;
  return FormatAddress(reversed) + ".in-addr.arpa";
}

std::optional<std::vector<std::string>> PointerNamesIn(std::string_view message,
                                                       const std::string& name) {
  MessageReader reader(message);
  reader.Skip(4);  // identifier and flags
  const int questions = reader.Number(2);
  const int answers = reader.Number(2);
  reader.Skip(HeaderSize - 8);
  for (int i = 0; i < questions && !reader.HasFailed(); ++i) {
    reader.Name();
    reader.Skip(4);
  }
  Records records;
  for (int i = 0; i < answers && !reader.HasFailed(); ++i) ReadRecord(reader, records);
  if (reader.HasFailed()) return {};
  std::string owner = Folded(name);
  for (std::size_t i = 0; i < records.Aliases.size(); ++i) {  // no longer, if they go in a circle
    const auto alias = records.Aliases.find(owner);
    if (alias == records.Aliases.end()) break;
    owner = alias->second;
  }
  std::vector<std::string> names;
  const auto [first, last] = records.Pointers.equal_range(owner);
  for (auto pointer = first; pointer != last; ++pointer) names.push_back(pointer->second);
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace hostsweep
