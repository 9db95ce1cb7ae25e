#include "network/changes/seen_line.h"

#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "network/plan/address.h"
#include "network/report/json_fields.h"
#include "platform/text/json_text.h"
#include "platform/text/printable.h"

namespace hostsweep {
namespace {

constexpr unsigned Version = 1;

using State = SeenHost::State;
constexpr std::array<std::pair<std::string_view, State>, 6> States = {
    {{"here", State::Here},
     {"missed", State::Missed},
     {"away", State::Away},
     {"gone", State::Gone},
     {"replaced", State::Replaced},
     {"left", State::Left}}};

std::string_view WordFor(State state) {
  for (const auto& [word, known] : States) {
    if (known == state) return word;
  }
  return {};
}

[[noreturn]] void Refuse(const std::string& what) { throw std::invalid_argument(what); }

// One line as it is read. Each field is taken once, and no field may be left.
class Reader {
 public:
  explicit Reader(const std::string& line) {
    std::size_t keyCount = 0;
    const auto countKeys = [&](int depth, nlohmann::json::parse_event_t event,
                               const auto& /*key*/) {
      const bool isOwnKey = depth == 1 && event == nlohmann::json::parse_event_t::key;
      keyCount += isOwnKey ? 1 : 0;
      return true;
    };
    object_ = nlohmann::json::parse(line, countKeys, false);
    if (!object_.is_object()) Refuse("is not a JSON object");
    if (object_.size() != keyCount) Refuse("has a key twice");
  }

  nlohmann::json Take(const char* name) {
    const auto found = object_.find(name);
    if (found == object_.end()) Refuse(std::string("has no ") + name);
    nlohmann::json value = std::move(*found);
    object_.erase(found);
    return value;
  }

  // A text that a terminal can show; nothing for null.
  std::optional<std::string> TakeText(const char* name) {
    const nlohmann::json value = Take(name);
    if (value.is_null()) return {};
    if (!value.is_string()) RefuseValue(name);
    const auto& text = value.get_ref<const std::string&>();
    if (Printable(text) != text) RefuseValue(name);
    return text;
  }

  std::string TakeWord(const char* name) {
    const std::optional<std::string> text = TakeText(name);
    if (!text) RefuseValue(name);
    return *text;
  }

  std::optional<bool> TakeTruth(const char* name) {
    const nlohmann::json value = Take(name);
    if (value.is_null()) return {};
    if (!value.is_boolean()) RefuseValue(name);
    return value.get<bool>();
  }

  SweepTime TakeTime(const char* name) {
    const std::optional<SweepTime> time = ParseTime(TakeWord(name));
    if (!time) RefuseValue(name);
    return *time;
  }

  void CheckVersion() {
    const nlohmann::json version = Take("version");
    if (!version.is_number_unsigned() || version == 0U) RefuseValue("version");
    if (version > Version) Refuse("is of a later version of hostsweep-network");
  }

  void CheckEnd() const {
    if (!object_.empty()) Refuse("has an unknown key " + Printable(object_.begin().key()));
  }

  [[noreturn]] static void RefuseValue(const std::string& name) {
    Refuse("has a wrong value for " + name);
  }

 private:
  nlohmann::json object_;
};

// Groups of two digits, as findings have them: six like 00-1A-2B-3C-4D-5E, any others like 00:1a.
// The same card in another form would count as another card.
bool IsHardwareAddress(std::string_view text) {
  constexpr std::size_t GroupSize = 3;
  constexpr std::size_t UsualSize = 17;
  if (text.size() % GroupSize != 2) return false;
  const bool isUsual = text.size() == UsualSize;
  const std::string_view digits = isUsual ? "0123456789ABCDEF" : "0123456789abcdef";
  const std::string_view separators = isUsual ? "-" : ":";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view allowed = i % GroupSize == 2 ? separators : digits;
    if (allowed.find(text[i]) == std::string_view::npos) return false;
  }
  return true;
}

std::string ReadHardwareAddress(Reader& reader) {
  const std::optional<std::string> text = reader.TakeText("hardware_address");
  if (!text) return {};
  if (!IsHardwareAddress(*text)) Reader::RefuseValue("hardware_address");
  return *text;
}

NameSource ReadSource(Reader& reader) {
  const std::string word = reader.TakeText("name_source").value_or("");
  for (const NameSource source : {NameSource::None, NameSource::Hosts, NameSource::Dns,
                                  NameSource::Mdns, NameSource::NetBios}) {
    if (hostsweep::WordFor(source) == word) return source;
  }
  Reader::RefuseValue("name_source");
}

Presence ReadPresence(Reader& reader) {
  const std::optional<bool> isUp = reader.TakeTruth("up");
  if (!isUp) return Presence::Unknown;
  return *isUp ? Presence::Up : Presence::Absent;
}

State ReadState(Reader& reader) {
  const std::string word = reader.TakeWord("state");
  for (const auto& [known, state] : States) {
    if (known == word) return state;
  }
  Reader::RefuseValue("state");
}

}  // namespace

std::string FormatSeenLine(const SeenHost& host, Makers& makers) {
  return '{' + JsonFields(host.Known, makers) + R"(,"first_seen":")" + FormatTime(host.FirstSeen) +
         R"(","last_seen":")" + FormatTime(host.LastSeen) + R"(","state":")" +
         std::string(WordFor(host.Whereabouts)) + R"(","looked_up":)" +
         (host.Known.IsLookedUp ? "true" : "false") + R"(,"version":)" + std::to_string(Version) +
         "}\n";
}

SeenHost ParseSeenLine(const std::string& line) {
  Reader reader(line);
  reader.CheckVersion();
  SeenHost host;
  const std::optional<std::uint32_t> address = ParseAddress(reader.TakeWord("address"));
  if (!address) Reader::RefuseValue("address");
  host.Known.Address = *address;
  host.Known.Name = reader.TakeText("name");
  host.Known.HardwareAddress = ReadHardwareAddress(reader);
  reader.Take("maker");
  host.Known.Host = ReadPresence(reader);
  host.Known.Source = ReadSource(reader);
  host.FirstSeen = reader.TakeTime("first_seen");
  host.LastSeen = reader.TakeTime("last_seen");
  host.Whereabouts = ReadState(reader);
  host.Known.IsLookedUp = reader.TakeTruth("looked_up").value_or(false);
  reader.CheckEnd();
  const bool hasSource = host.Known.Source != NameSource::None;
  if (host.Known.Name.has_value() != hasSource) Reader::RefuseValue("name_source");
  const bool isLost = host.Known.HardwareAddress.empty() && host.Whereabouts != State::Here;
  if (isLost) Reader::RefuseValue("state");
  return host;
}

}  // namespace hostsweep
