// Names from outside: the messages of name servers and hosts, and /etc/hosts.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

#include "network/engine/dns_message.h"
#include "network/engine/hosts_file.h"
#include "network/engine/multicast_dns.h"
#include "network/engine/net_bios.h"
#include "network/engine/pointer_records.h"

namespace hostsweep {
namespace {

constexpr int Txt = 16;

std::string Number(int number) {
  return {static_cast<char>(number >> 8), static_cast<char>(number)};
}

std::string Encoded(std::string_view name) {
  std::string bytes;
  while (!name.empty()) {
    const std::size_t end = std::min(name.find('.'), name.size());
    bytes += static_cast<char>(end) + std::string(name.substr(0, end));
    name.remove_prefix(std::min(end + 1, name.size()));
  }
  return bytes + '\0';
}

// A response with one question, and records in the answers or after them.
class Message {
 public:
  explicit Message(const std::string& question, int flags = 0x8180)
      : flags_(flags), questions_(Encoded(question) + Number(PointerType) + Number(1)) {}

  Message& Add(const std::string& owner, int type, const std::string& data, int recordClass = 1,
               int timeToLive = 60) {
    Append(answers_, Encoded(owner), type, data, recordClass, timeToLive);
    ++count_;
    return *this;
  }

  Message& AddOther(const std::string& owner, int type, const std::string& data) {
    Append(others_, Encoded(owner), type, data, 0x8001, 60);
    ++otherCount_;
    return *this;
  }

  [[nodiscard]] std::string Bytes() const {
    return std::string("\x12\x34", 2) + Number(flags_) + Number(1) + Number(count_) + Number(0) +
           Number(otherCount_) + questions_ + answers_ + others_;
  }

 private:
  static void Append(std::string& records, const std::string& owner, int type,
                     const std::string& data, int recordClass, int timeToLive) {
    records += owner + Number(type) + Number(recordClass) + Number(0) + Number(timeToLive) +
               Number(static_cast<int>(data.size())) + data;
  }

  int flags_;
  std::string questions_;
  std::string answers_;
  std::string others_;
  int count_ = 0;
  int otherCount_ = 0;
};

std::string NamesIn(const std::string& message, const std::string& name) {
  const auto names = PointerNamesIn(message, name);
  if (!names) return "unreadable";
  std::string text;
  for (const std::string& one : *names) text += one + "|";
  return text;
}

TEST(PointerNamesIn, TakesOnlyTheNamesOfTheQuestion) {
  const std::string name = ReverseName(0x0A320007);
  ASSERT_EQ(name, "7.0.50.10.in-addr.arpa");
  constexpr int Alias = AliasType;
  constexpr int Pointer = PointerType;
  constexpr int Address = AddressType;
  const auto target = [](const std::string& text) { return Encoded(text); };
  const std::pair<std::string, Message> rows[] = {
      {"", Message(name)},
      {"nas.lan|", Message(name).Add("7.0.50.10.IN-ADDR.arpa", Pointer, target("nas.lan"))},
      {"a|b|", Message(name)
                   .Add(name, Pointer, target("b"))
                   .Add(name, Pointer, target("a"))
                   .Add(name, Pointer, target("b"))},
      {"|", Message(name).Add(name, Pointer, target(""))},
      {"x\\032\\255\\.\\\\y.lan|",
       Message(name).Add(name, Pointer, std::string("\x06x \xFF.\\y\x03lan\0", 12))},
      {"", Message(name).Add(name, Pointer, "\xC0\xFF")},
      {"", Message(name).Add("8.0.50.10.in-addr.arpa", Pointer, target("other"))},
      {"", Message(name).Add(name, Address, "\x0A\x32\x00\x07")},
      {"", Message(name).Add(name, Pointer, target("chaos"), 3)},
      {"nas|", Message(name)
                   .Add("7.x", Pointer, target("nas"))
                   .Add("7.Y", Alias, target("7.x"))
                   .Add(name, Alias, target("7.y"))},
      {"", Message(name).Add(name, Alias, target("a")).Add("a", Alias, target(name))},
      {"", Message(name).Add(name, Alias, target("7.x")).Add("7.z", Pointer, target("other"))}};
  for (const auto& [names, message] : rows) EXPECT_EQ(NamesIn(message.Bytes(), name), names);
  const std::string whole = Message(name).Add(name, Pointer, target("nas.lan")).Bytes();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(NamesIn(whole.substr(0, size), name), "unreadable") << size;
  }
}

constexpr std::uint32_t Host = 0x0A320007;
constexpr std::uint32_t Other = 0x0A320008;
const std::string HostBytes = "\x0A\x32" + std::string(1, '\0') + "\x07";

// The pointer name and the address name of the host after this message.
std::string Heard(std::uint32_t sender, const std::string& bytes, int device = 1) {
  MulticastDns names;
  names.Ask(Host, 1);
  names.Hear(device, sender, bytes);
  return names.PointerName(Host).value_or("-") + " " + names.AddressName(Host).value_or("-");
}

// The longest name that a message can have.
const std::string Label = std::string(63, 'x') + '.';
const std::string Longest = Label + Label + Label + std::string(55, 'x') + ".local";

TEST(MulticastDns, BelievesAHostItsOwnNameAlone) {
  const std::string name = ReverseName(Host);
  const std::string other = ReverseName(Other);
  const std::string query = "x";
  const auto named = [&](const std::string& target) {
    return Message(query).Add(name, PointerType, Encoded(target), 0x8001);
  };
  const std::pair<std::string, Message> rows[] = {
      {"nas.local -", named("nas.local")},
      {"Nas.LOCAL -", named("Nas.LOCAL")},
      {"B\u00FCro\\032\\226\\128\\174\\255.local -", named("B\u00FCro \u202E\xFF.local")},
      {"a.b.local -", named("b.c.local").Add(name, PointerType, Encoded("a.b.local"))},
      {"- nas.local", Message(query).AddOther("nas.local", AddressType, HostBytes)},
      {"- a.local", Message(query)
                        .Add("b.local", AddressType, HostBytes)
                        .Add("a.local", AddressType, HostBytes)},
      {"- -", named("nas.lan")},
      {"- -", named("local")},
      {"- -", Message(query).Add(name, PointerType, "", 1).Add("nas.local", Txt, "")},
      {"- -", Message(query).Add(name, PointerType, Encoded("nas.local") + "x")},
      {Longest + " -", named(Longest)},
      {"- -", named("x." + Longest)},
      {"x\\\\.local -", named("x\\.local")},
      {"- -", Message(query).Add(name, PointerType, std::string("\x07x.local\0", 9))},  // one label
      {"- -", named("nas.local.lan")},
      {"- -", Message(query).Add(other, PointerType, Encoded("stolen.local"))},
      {"- -", Message(query).Add("nas.local", AddressType, "\x0A\x32\x01\x07")},
      {"- -", Message(query).Add("nas.local", AddressType, HostBytes + "\x07", 3)},
      {"- -", Message(query).Add("nas.local", Txt, HostBytes)},
      {"- -", Message(query).Add("nas.lan", AddressType, HostBytes)},
      {"- -", Message(query).Add(name, PointerType, Encoded("gone.local"), 0x8001, 0)},
      {"- -", Message(query, 0x0000).Add(name, PointerType, Encoded("asked.local"))},
      {"- -", Message(query, 0x8403).Add(name, PointerType, Encoded("error.local"))},
      {"- -", Message(query, 0xA800).Add(name, PointerType, Encoded("update.local"))}};
  int row = 0;
  for (const auto& [names, message] : rows) {
    EXPECT_EQ(Heard(Host, message.Bytes()), names) << ++row;
    EXPECT_EQ(Heard(Other, message.Bytes()), "- -") << row;
    EXPECT_EQ(Heard(Host, message.Bytes(), 2), "- -") << row;
  }
  const std::string whole = named("nas.local").Bytes();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(Heard(Host, whole.substr(0, size)), "- -") << size;
  }
}

// The next query: its device, and its questions with their types.
std::string Asked(MulticastDns& names) {
  const std::optional<MulticastDns::Query> query = names.Next();
  if (!query) return "nothing";
  const std::string& bytes = query->Message;
  EXPECT_LE(bytes.size(), 1412U);
  EXPECT_EQ(bytes.substr(0, 5), std::string(5, '\0'));
  EXPECT_EQ(bytes.substr(6, 6), std::string(6, '\0'));
  std::string text = std::to_string(query->Device);
  std::size_t at = 12;
  for (int count = bytes[5]; count > 0; --count) {
    for (text += ' '; bytes.at(at) != 0; at += static_cast<std::size_t>(bytes[at]) + 1) {
      text += bytes.substr(at + 1, static_cast<std::size_t>(bytes[at])) + ".";
    }
    text += "/" + std::to_string(bytes.at(at + 2));
    EXPECT_EQ(bytes.substr(at + 3, 2), Number(InternetClass));
    at += 5;
  }
  EXPECT_EQ(at, bytes.size());
  return text;
}

TEST(MakeQuery, LeavesOutNamesThatNoMessageCanHave) {
  const std::string label(63, 'a');
  const std::string longest = label + '.' + label + '.' + label + '.' + std::string(61, 'a');
  const std::pair<std::string, bool> rows[] = {
      {longest, true}, {longest + 'a', false}, {label + 'a', false}, {"a..b", false}};
  for (const auto& [name, isAsked] : rows) {
    EXPECT_EQ(MakeQuery({{name, AddressType}}).size(), isAsked ? 12 + name.size() + 6 : 12) << name;
  }
}

TEST(MulticastDns, FollowsWhatABrowseLeadsTo) {
  const std::string services = "_services._dns-sd._udp.local";
  const std::string instance = std::string("\x04My P\x05_http\x04_tcp\x05local\0", 23);
  const auto hear = [](MulticastDns& names, std::uint32_t sender, const Message& message) {
    names.Hear(1, sender, message.Bytes());
    return Asked(names);
  };
  MulticastDns names;
  names.Browse(1);
  names.Ask(Host, 1);
  names.Ask(Other, 2);
  EXPECT_EQ(Asked(names), "1 _services._dns-sd._udp.local./12 7.0.50.10.in-addr.arpa./12");
  EXPECT_EQ(Asked(names), "2 8.0.50.10.in-addr.arpa./12");
  EXPECT_EQ(Asked(names), "nothing");
  const Message kind = Message("x").Add(services, PointerType, Encoded("_http._tcp.local"));
  EXPECT_EQ(hear(names, 1, kind), "1 _http._tcp.local./12");  // from anybody
  EXPECT_EQ(hear(names, Host, kind), "nothing");              // but only once
  const Message service = Message("x").Add("_HTTP._tcp.local", PointerType, instance);
  EXPECT_EQ(hear(names, 1, service), "nothing");
  EXPECT_EQ(hear(names, Host, service), "1 My P._http._tcp.local./33");
  const Message host = Message("x").Add("My P._http._tcp.local", ServiceType,
                                        std::string(6, '\0') + Encoded("esp.local"));
  EXPECT_EQ(hear(names, Host, host), "1 esp.local./1");
  const Message stranger =
      Message("x").Add("_ipp._tcp.local", PointerType, Encoded("p._ipp._tcp.local"));
  EXPECT_EQ(hear(names, Host, stranger), "nothing");  // nobody has asked for it
  EXPECT_EQ(hear(names, Host, Message("x").Add("esp.local", AddressType, HostBytes)), "nothing");
  EXPECT_EQ(names.AddressName(Host), "esp.local");
  names.Browse(1);
  EXPECT_EQ(Asked(names), "1 _services._dns-sd._udp.local./12");
  EXPECT_EQ(hear(names, 1, kind), "1 _http._tcp.local./12");  // anew
  EXPECT_EQ(hear(names, Host, service), "nothing");           // its name is known
  names.Forget(Host);
  EXPECT_EQ(names.AddressName(Host), std::nullopt);
}

TEST(MulticastDns, SetsLimitsToWhatStrangersCause) {
  MulticastDns names;
  names.Browse(1);
  std::size_t questions = 0;
  for (int i = 0; i < 1000; ++i) {
    const std::string padding(i < 128 ? 0 : 50, 'x');
    const std::string kind = "_" + padding + std::to_string(i) + "._tcp.local";
    names.Hear(
        1, 1, Message("x").Add("_services._dns-sd._udp.local", PointerType, Encoded(kind)).Bytes());
  }
  for (std::string asked = Asked(names); asked != "nothing"; asked = Asked(names)) {
    questions += static_cast<std::size_t>(std::count(asked.begin(), asked.end(), '/'));
  }
  EXPECT_EQ(questions, 1 + 256U);
  names.Ask(Host, 1);
  Message services("x");
  for (int i = 0; i < 10; ++i) {
    services.Add("_0._tcp.local", PointerType, Encoded(std::to_string(i) + "._0._tcp.local"));
  }
  names.Hear(1, Host, services.Bytes());
  const std::string asked = Asked(names);
  EXPECT_EQ(std::count(asked.begin(), asked.end(), '/'), 1 + 8);
  const auto say = [&](std::uint32_t sender) {
    names.Hear(1, sender,
               Message("x").Add(ReverseName(sender), PointerType, Encoded("n.local")).Bytes());
    names.Ask(sender, 1);
    return names.PointerName(sender).has_value();
  };
  for (std::uint32_t sender = 1; sender <= 4096; ++sender) EXPECT_TRUE(say(sender));
  EXPECT_FALSE(say(5000));
  EXPECT_TRUE(say(5000));
}

// A response to a node status request with these entries: a name, its type and its flags.
std::string Status(const std::vector<std::tuple<std::string, int, int>>& entries) {
  std::string message = NodeStatusRequest(0x1234);
  message[2] = '\x84';
  message.replace(4, 4, Number(0) + Number(1));
  message += std::string(4, '\0') + Number(static_cast<int>(entries.size()) * 18 + 47);
  message += static_cast<char>(entries.size());
  for (const auto& [name, type, flags] : entries) {
    message += name + std::string(15 - name.size(), ' ') + static_cast<char>(type) + Number(flags);
  }
  return message;
}

TEST(NodeNameIn, TakesTheUniqueNameOfTheHost) {
  const std::pair<std::string, std::string> rows[] = {
      {"BOX",
       Status({{"LAB", 0, 0x8400}, {"FILES", 0x20, 0x400}, {"BOX", 0, 0x400}, {"B2", 0, 0}})},
      {"A\\032B\\\\\\027\\255", Status({{"A B\\\x1B\xFF", 0, 0x400}})},
      {"SIXTEEN-LETTERS", Status({{"SIXTEEN-LETTERS", 0, 0x400}})},
      {"-", Status({{"", 0, 0x400}, {"GOES", 0, 0x1400}, {"TWICE", 0, 0xC00}})},
      {"-", Status({})}};
  for (const auto& [name, message] : rows) {
    EXPECT_EQ(NodeNameIn(message, 0x1234).value_or("-"), name);
    EXPECT_EQ(NodeNameIn(message, 0x1235), std::nullopt);
  }
  const std::string whole = Status({{"BOX", 0, 0x400}});
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(NodeNameIn(whole.substr(0, size), 0x1234), std::nullopt) << size;
  }
  for (const std::size_t at : {2U, 3U, 5U, 7U, 13U, 47U}) {  // flags, counts, the name, the type
    std::string other = whole;
    other[at] = static_cast<char>(other[at] ^ (at == 2 ? 0x80 : 1));
    EXPECT_EQ(NodeNameIn(other, 0x1234), std::nullopt) << at;
  }
}

TEST(HostsFile, HasTheFirstNameOfTheFirstLine) {
  const std::string path = testing::TempDir() + "hosts." + std::to_string(getpid());
  std::ofstream(path) << "# 10.50.0.7 no\n::1 six\n10.50.0.7\n10.50.0.07 no\n 10.50.0.7\tnas.lan "
                         "other # x\r\n10.50.0.7 second\n10.50.0.8 b#c\n10.50.0.9 "
                      << std::string(5000, 'x') << " 10.50.0.10 no\n10.50.0.11 B\u00FC\x1B\\";
  const HostsFile file(path);
  const std::pair<std::uint32_t, std::string> rows[] = {
      {7, "nas.lan"}, {8, "b"}, {9, std::string(5000, 'x')}, {10, "-"}, {11, "B\u00FC\\027\\\\"}};
  for (const auto& [host, name] : rows) {
    EXPECT_EQ(file.NameOf(0x0A320000 + host).value_or("-"), name);
  }
  std::filesystem::remove(path);
  EXPECT_EQ(HostsFile(path).NameOf(Host), std::nullopt);
  EXPECT_THROW(HostsFile(testing::TempDir()), std::system_error);
}

}  // namespace
}  // namespace hostsweep
