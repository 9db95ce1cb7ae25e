// What must hold for any bytes that a tool may print, a name server or a host may send, a file may
// have or an argument may be, for Clang's libFuzzer. The sanitizers look for everything else.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "network/changes/change_lines.h"
#include "network/changes/seen_line.h"
#include "network/engine/dns_message.h"
#include "network/engine/multicast_dns.h"
#include "network/engine/name_text.h"
#include "network/engine/net_bios.h"
#include "network/engine/pointer_records.h"
#include "network/plan/address.h"
#include "network/plan/network.h"
#include "network/plan/usage_error.h"
#include "network/report/format.h"
#include "network/report/makers.h"
#include "platform/text/printable.h"
#include "platform/text/text_operations.h"
#include "sweep/hardware_address.h"
#include "sweep/host_name.h"

namespace hostsweep {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

// Nothing in it could steer a terminal.
void RequirePrintable(std::string text) {
  std::erase_if(text, [](char byte) { return byte == '\r' || byte == '\n'; });
  Require(Printable(text) == text);
}

// An answer gives names only to the address that was asked for: without its name in the message
// there are no names. Nothing that could steer a terminal comes out.
void CheckAnswer(const std::string& message) {
  const auto names = PointerNamesIn(message, "7.0.0.10.in-addr.arpa");
  if (!names) return;
  const bool isNamed = Contains(message, "in-addr") && Contains(message, "\0017");
  Require(names->empty() || isNamed);
  for (const std::string& name : *names) {
    for (const char byte : name) Require(byte > ' ' && byte < 0x7F);
  }
}

// A host gives a name only to its own address, in .local: without its address in the message there
// is no name. A terminal can show the name, and each further query fits into one packet.
void CheckHost(const std::string& bytes) {
  constexpr std::uint32_t Host = 0x0A000007;
  const std::string message = std::string("\0\0\x84\0\0\0\0\3\0\0\0\3", 12) + bytes;
  const std::string address("\x0A\0\0\x07", 4);
  MulticastDns names;
  names.Browse(1);
  names.Ask(Host, 1);
  names.Hear(1, Host, message);
  Require(!names.AddressName(Host + 1) && !names.PointerName(Host + 1));
  Require(!names.AddressName(Host) || Contains(message, address));
  Require(!names.PointerName(Host) || Contains(Folded(message), "IN-ADDR"));
  for (const auto& name : {names.AddressName(Host), names.PointerName(Host)}) {
    if (!name) continue;
    Require(Printable(*name) == *name && !Contains(*name, " "));
    Require(Folded(*name).ends_with(".LOCAL"));
  }
  while (const auto query = names.Next()) Require(query->Message.size() <= 1412);

  std::string status = NodeStatusRequest(7) + std::string("\0\0\0\0\0\x41", 6) + bytes;
  status[2] = '\x84';
  status[5] = 0;
  status[7] = 1;
  const auto name = NodeNameIn(status, 7);
  Require(!name || Printable(*name) == *name);
  Require(!NodeNameIn(status, 8));
  RequirePrintable(NameText(bytes));
}

// A report has a name of any bytes: nothing of it reaches a terminal that could steer it, a line
// can be taken apart again, and JSON can be read and has the name, if that is UTF-8.
void CheckReport(const std::string& name) {
  static Makers makers("/nonexistent", "/nonexistent");
  Change change;
  change.What = Change::Kind::Renamed;
  change.FromName = name;
  Finding& finding = change.Host.Known;
  finding = {0x0A000007, name, "00-1A-2B-3C-4D-5E", Presence::Up};
  const auto report = [&](Format format, bool isForTerminal) {
    const auto formatter = MakeFormatter(format, {Selection::All, isForTerminal, 32}, makers);
    const std::string text = formatter->Begin() + formatter->Add(finding);
    return text + formatter->End(true);
  };
  for (const Format format :
       {Format::Lines, Format::Table, Format::Csv, Format::Json, Format::Map}) {
    RequirePrintable(report(format, true));
  }
  RequirePrintable(FormatChanges({change}, makers));

  const std::string line = report(Format::Lines, false);
  const std::size_t begin = line.find('=') + 1;
  Require(line.substr(begin, line.rfind('=') - begin) == name);

  using Json = nlohmann::json;
  const Json object = Json::parse(report(Format::Json, false));
  const Json changes = Json::parse(FormatChangesInJson({change}, makers));
  try {
    static_cast<void>(Json(name).dump());
  } catch (const Json::type_error&) {
    return;  // not UTF-8
  }
  Require(object["name"] == name && changes["name"] == name && changes["from"] == name);
}

// A network that is taken has addresses in order, and a range that is made of them is the same one.
void CheckNetwork(const std::string& argument) {
  try {
    const Network network = ParseNetwork(argument);
    const Network range =
        ParseNetwork(FormatAddress(network.First) + '-' + FormatAddress(network.Last));
    Require(range.First == network.First && range.Last == network.Last);
    Require(network.First <= network.Last && network.Name == argument);
  } catch (const UsageError& error) {
    RequirePrintable(error.what());
  }
}

// A line of the file of `--changes` that is taken can be written again. Random bytes would be no
// such line, so they take the place of a part of a line.
void CheckSeenLine(const std::string& bytes, std::size_t begin, std::size_t size) {
  std::string line =
      R"({"address":"10.0.0.7","name":"nas.lan","hardware_address":"00-1A-2B-3C-4D-5E","maker":null,)"
      R"("up":false,"name_source":"mdns","first_seen":"2026-02-28T23:59:59Z",)"
      R"("last_seen":"2027-01-02T03:04:05Z","state":"gone","looked_up":true,"version":1})";
  line.replace(begin % line.size(), size, bytes);
  Makers makers("/nonexistent", "/nonexistent");
  try {
    line = FormatSeenLine(ParseSeenLine(line), makers);
  } catch (const std::invalid_argument&) {
    return;
  }
  Require(line.back() == '\n');
  line.pop_back();
  for (const char byte : line) Require(static_cast<unsigned char>(byte) >= ' ' && byte != 0x7F);
  Require(FormatSeenLine(ParseSeenLine(line), makers) == line + '\n');
}

void Check(const Text& text, const Text& part, std::int64_t count) {
  Require((Left(text, count) + Right(text, Len(text) - Len(Left(text, count)))).Bytes() ==
          text.Bytes());
  Require(Join(Split(text, part), part) == text);
  Val(text);

  Require(Len(ParseHostName(text, "10.0.0.7")) <= Len(text) + 8);
  const std::string address = ParseHardwareAddress(text).Bytes();
  Require(text.Bytes().find(address) != std::string::npos ||
          address.find(':') == std::string::npos);
}

}  // namespace
}  // namespace hostsweep

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 4) return 0;
  const std::string bytes(data + 2, data + size);
  const std::size_t partSize = data[0] % 3;
  hostsweep::Check(bytes.substr(partSize), bytes.substr(0, partSize),
                   static_cast<std::int8_t>(data[1]));
  hostsweep::CheckAnswer(bytes);
  hostsweep::CheckHost(bytes);
  hostsweep::CheckReport(bytes);
  hostsweep::CheckNetwork(bytes);
  hostsweep::CheckSeenLine(bytes.substr(1), static_cast<unsigned char>(bytes[0]) * 2U, data[0]);
  return 0;
}
