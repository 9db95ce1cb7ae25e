#include "network/engine/dns_message.h"

#include <ares.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "network/plan/address.h"
#include "platform/text/characters.h"

namespace hostsweep {
namespace {

// The bytes of a name in a message, and of one of its labels (RFC 1035, section 2.3.4).
constexpr std::size_t LongestName = 255;
constexpr std::size_t LongestLabel = 63;

// Reads a message part by part. After a part that cannot be read, nothing more can be read, and
// `HasFailed` is true.
class MessageReader {
 public:
  explicit MessageReader(std::string_view message) : message_(message) {}

  [[nodiscard]] bool HasFailed() const { return hasFailed_; }

  // The number of bytes that have been read.
  [[nodiscard]] std::size_t Position() const { return position_; }

  // A number of `size` bytes, at most 4, the highest byte first.
  std::uint32_t Number(std::size_t size) {
    std::uint32_t number = 0;
    for (const char byte : Skip(size)) number = number << 8U | static_cast<unsigned char>(byte);
    return number;
  }

  int Short() { return static_cast<int>(Number(2)); }

  // The next `size` bytes; no bytes if fewer are left.
  std::string_view Skip(std::size_t size) {
    hasFailed_ = hasFailed_ || size > message_.size() - position_;
    if (hasFailed_) return {};
    position_ += size;
    return message_.substr(position_ - size, size);
  }

  // A name, which can continue elsewhere in the message.
  std::string Name() {
    char* expanded = nullptr;
    long size = 0;
    const auto* const begin = reinterpret_cast<const unsigned char*>(message_.data());
    hasFailed_ = hasFailed_ || !IsNameEnding() ||
                 ares_expand_name(begin + position_, begin, static_cast<int>(message_.size()),
                                  &expanded, &size) != ARES_SUCCESS;
    if (hasFailed_) return {};
    std::string name = WithoutSpaces(expanded);
    ares_free_string(expanded);
    Skip(static_cast<std::size_t>(size));
    return name;
  }

 private:
  // True if the name at the position ends within the bytes that it may have, which c-ares does not
  // check: a message can have many names that all continue in a very long one.
  [[nodiscard]] bool IsNameEnding() const {
    constexpr unsigned Pointer = 0xC0;  // RFC 1035, section 4.1.4
    std::size_t size = 1;
    std::size_t at = position_;
    for (std::size_t parts = 0; parts < LongestName && at < message_.size(); ++parts) {
      const unsigned length = ByteAt(at);
      if (length == 0) return size <= LongestName;
      if (length < Pointer) {
        size += length + 1;
        at += length + 1;
      } else {
        if (at + 1 == message_.size()) return false;
        at = (length - Pointer) << 8U | ByteAt(at + 1);
      }
    }
    return false;
  }

  [[nodiscard]] unsigned ByteAt(std::size_t position) const {
    return static_cast<unsigned char>(message_[position]);
  }

  // c-ares leaves a space as it is, where host(1) writes its number.
  static std::string WithoutSpaces(const char* name) {
    std::string text;
    for (; *name != '\0'; ++name) {
      if (*name == ' ') {
        text += "\\032";
      } else {
        text += *name;
      }
    }
    return text;
  }

  std::string_view message_;
  std::size_t position_ = 0;
  bool hasFailed_ = false;
};

// Reads the data of a record. Returns false if its type is not known.
bool ReadData(MessageReader& data, DnsRecord& record) {
  constexpr std::size_t ServiceNumbers = 6;  // priority, weight and port
  switch (record.Type) {
    case AddressType:
      record.Address = data.Number(4);
      return true;
    case ServiceType:
      data.Skip(ServiceNumbers);
      record.Target = data.Name();
      return true;
    case AliasType:
    case PointerType:
      record.Target = data.Name();
      return true;
    default:
      return false;
  }
}

void ReadRecord(MessageReader& reader, std::vector<DnsRecord>& records) {
  DnsRecord record;
  record.Owner = reader.Name();
  record.Type = reader.Short();
  record.Class = reader.Short();
  record.TimeToLive = reader.Number(4);
  const auto size = static_cast<std::size_t>(reader.Short());
  MessageReader data = reader;
  reader.Skip(size);
  if (reader.HasFailed()) return;
  const bool isRead = ReadData(data, record) && !data.HasFailed();
  if (isRead && data.Position() == reader.Position()) records.push_back(std::move(record));
}

void ReadRecords(MessageReader& reader, int count, std::vector<DnsRecord>& records) {
  for (int i = 0; i < count && !reader.HasFailed(); ++i) ReadRecord(reader, records);
}

std::string Encoded(int number) {
  return {static_cast<char>(number >> 8), static_cast<char>(number & 0xFF)};
}

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

// Takes an escape from the beginning of the text, and returns the byte that it stands for. Nothing
// if the text does not begin with an escape.
std::optional<char> TakeEscape(std::string_view& text) {
  if (text.size() < 2 || text[0] != '\\') return {};
  const bool isNumber = text.size() > 3 && std::all_of(text.begin() + 1, text.begin() + 4, IsDigit);
  const char byte =
      isNumber ? static_cast<char>((text[1] - '0') * 100 + (text[2] - '0') * 10 + (text[3] - '0'))
               : text[1];
  text.remove_prefix(isNumber ? 4 : 2);
  return byte;
}

// The labels of the name, each after its length; nothing if no message can have the name.
std::optional<std::string> EncodedName(std::string_view name) {
  std::string encoded;
  while (!name.empty()) {
    std::string label;
    while (!name.empty() && name[0] != '.') {
      if (const std::optional<char> escaped = TakeEscape(name)) {
        label += *escaped;
      } else {
        label += name[0];
        name.remove_prefix(1);
      }
    }
    if (label.empty() || label.size() > LongestLabel) return {};
    if (!name.empty()) name.remove_prefix(1);
    encoded += static_cast<char>(label.size()) + label;
  }
  encoded += '\0';
  if (encoded.size() > LongestName) return {};
  return encoded;
}

}  // namespace

std::optional<DnsMessage> ReadDnsMessage(std::string_view bytes) {
  MessageReader reader(bytes);
  DnsMessage message;
  reader.Skip(2);  // identifier
  message.Flags = reader.Short();
  const int questions = reader.Short();
  const int answers = reader.Short();
  const int authorities = reader.Short();
  const int additional = reader.Short();
  for (int i = 0; i < questions && !reader.HasFailed(); ++i) {
    reader.Name();
    reader.Skip(4);
  }
  ReadRecords(reader, answers, message.Answers);
  if (reader.HasFailed()) return {};
  ReadRecords(reader, authorities + additional, message.Others);
  return message;
}

std::string Folded(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(), AsciiUpper);
  return name;
}

std::string ReverseName(std::uint32_t address) {
  const std::uint32_t reversed = (address & 0xFFU) << 24U | (address & 0xFF00U) << 8U |
                                 (address >> 8U & 0xFF00U) | address >> 24U;
  return FormatAddress(reversed) + ".in-addr.arpa";
}

std::string MakeQuery(const std::vector<DnsQuestion>& questions) {
  std::string body;
  int count = 0;
  for (const DnsQuestion& question : questions) {
    const std::optional<std::string> name = EncodedName(question.Name);
    if (!name) continue;
    body += *name + Encoded(question.Type) + Encoded(InternetClass);
    ++count;
  }
  const std::string none = Encoded(0);
  return Encoded(0) + Encoded(0) + Encoded(count) + none + none + none + body;
}

}  // namespace hostsweep
