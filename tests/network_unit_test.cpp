// src/network/plan and report: arguments, networks, formats and makers.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <system_error>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include "network/engine/finding.h"
#include "network/plan/address.h"
#include "network/plan/network.h"
#include "network/plan/options.h"
#include "network/plan/usage_error.h"
#include "network/report/format.h"
#include "network/report/makers.h"
#include "platform/text/printable.h"

namespace hostsweep {
namespace {

constexpr const char* NoNetwork =
    ": not a network like 192.168.1, 192.168.1.0/24, 192.168.1.7 or 192.168.1.20-90";

// The result of the work as text, or what it throws.
template <typename Work>
std::string Outcome(Work work) {
  try {
    return work();
  } catch (const UsageError& error) {
    return error.what();
  }
}

std::string Described(const Network& network) {
  return network.Name + " " + FormatAddress(network.First) + " " + FormatAddress(network.Last) +
         " " + std::to_string(CountAddresses(network));
}

TEST(ParseNetwork, AcceptsItsFormsAndSaysWhatIsWrong) {
  const auto parsed = [](const std::string& argument) {
    return Outcome([&] { return Described(ParseNetwork(argument)); });
  };
  const std::pair<std::string, std::string> rows[] = {
      {"192.168.1", " 192.168.1.1 192.168.1.254 254"},
      {"10.50.1.9/22", " 10.50.0.1 10.50.3.254 1022"},
      {"255.255.9.9/16", " 255.255.0.1 255.255.255.254 65534"},
      {"10.0.0.7/30", " 10.0.0.5 10.0.0.6 2"},
      {"10.0.0.7/31", " 10.0.0.6 10.0.0.7 2"},
      {"255.255.255.255/32", " 255.255.255.255 255.255.255.255 1"},
      {"10.0.0.255-10.0.1.0", " 10.0.0.255 10.0.1.0 2"},
      {"10.0.0.7-10.0.0.7", " 10.0.0.7 10.0.0.7 1"},
      {"10.0.1.20-255", " 10.0.1.20 10.0.1.255 236"},
      {"10.0.0.7-7", " 10.0.0.7 10.0.0.7 1"},
      {"10.0.0.7-6", ": the range ends before it begins"},
      {"10.0.0.1-10.1.0.0", " 10.0.0.1 10.1.0.0 65536"},
      {"10.0.0.1-10.1.0.1", ": a range can have at most 65536 addresses"},
      {"10.0.0.9-10.0.0.8", ": the range ends before it begins"}};
  for (const auto& [argument, result] : rows) EXPECT_EQ(parsed(argument), argument + result);
  for (const char* const end : {"15", "33", "4294967320" /* 24 in 32 bits */, "024", "", "24/24"}) {
    const std::string argument = std::string("10.0.0.0/") + end;
    EXPECT_EQ(parsed(argument), argument + ": the prefix length must be from 16 to 32");
  }
  for (const std::string argument :
       {"10.0.0/24", "10.0.0.1-256", "10.0.0.1-09", "10.0.0.1-", "10.0.0.1-0.9", "10.0.0-9",
        "10.0.0.1-10.0.0.2-10.0.0.3", "256.0.0.1", "10.00.0.1", "10..0.1", "10.0.0.1.", "10.0.0. 1",
        "10.0.0.1\n", "10.0"}) {
    EXPECT_EQ(parsed(argument), Printable(argument) + NoNetwork);
  }
  EXPECT_EQ(parsed(""), std::string("\"\"") + NoNetwork);
  EXPECT_EQ(Described(NetworkOf(0x0A3201FF, 22)), "10.50.0.0/22 10.50.0.1 10.50.3.254 1022");
}

TEST(Printable, ReplacesWhatCouldSteerATerminal) {
  const std::pair<std::string, std::string> rows[] = {
      {" ~\u00A0\u20AC\U0001F600", " ~\u00A0\u20AC\U0001F600"},
      {std::string("\0\x1B[31m\x1F\x7F", 8), "??[31m??"},
      {"\u0080\u009B\u009F", "???"},      // C1 in UTF-8
      {"\x9B\xC2\xE2\x82\xF4", "?????"},  // and as a byte; beginnings of characters
      {"\u200D\u200E\u200F\u2010\u061B\u061C\u2027\u2028\u202E\u202F",
       "\u200D??\u2010\u061B?\u2027??\u202F"},
      {"\u2065\u2066\u2069\u206A", "\u2065??\u206A"}};
  for (const auto& [text, printable] : rows) EXPECT_EQ(Printable(text), printable);
}

// The options that `ReadOptions` makes of the arguments.
std::string Read(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "hostsweep-network");
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const Options options = ReadOptions(static_cast<int>(arguments.size()), pointers.data());
  if (options.Wanted != Task::Sweep) return options.Wanted == Task::PrintHelp ? "help" : "version";
  std::string text = "jobs " + std::to_string(options.Jobs);
  if (options.Reported != Selection::All)
    text += options.Reported == Selection::Up ? " up" : " free";
  if (options.ReportFormat)
    text += " format " + std::to_string(static_cast<int>(*options.ReportFormat));
  if (options.IsLocal) text += " local";
  if (!options.UsesNames) text += " unnamed";
  if (options.ChangesFile) text += " changes " + *options.ChangesFile;
  for (const auto& argument : options.Networks) {
    const auto* const network = std::get_if<Network>(&argument);
    text += " " + (network != nullptr ? network->Name
                                      : "device " + std::get<DeviceArgument>(argument).Name);
  }
  return text;
}

TEST(ReadOptions, AcceptsOptionsAnywhereAndSaysWhatIsWrong) {
  const std::pair<std::vector<std::string>, std::string> rows[] = {
      {{"10.0.1", "-u", "10.0.0", "--", "10.0.2"}, "jobs 512 up 10.0.1 10.0.0 10.0.2"},
      {{"-ulfjson", "-j", "1"}, "jobs 1 up format 3 local"},
      {{"--fr", "--fo=lines", "--jobs=1024", "--lo"}, "jobs 1024 free format 0 local"},
      {{"-l", "-f", "csv", "-fmap", "-uu"}, "jobs 512 up format 4 local"},
      {{"x", "-hx", "--wrong"}, "help"},
      {{"-u", "--free", "-h"}, "--up and --free cannot be combined"},
      {{"--vers", "--wrong"}, "version"},
      {{"-lxh"}, "-x: no such option"},  // the rest of the argument must not reach the next row
      {{"-V"}, "version"},
      {{"-l", "--wrong=\x1B[2J"}, "--wrong: no such option"},
      {{"--wro\x9Bng", "10.0.0"}, "--wro?ng: no such option"},
      {{"-\u00E9"}, "-\u00E9: no such option"},
      {{"10.0.0", "--f=csv"}, "--f: short for more than one option"},
      {{"--local=yes"}, "--local: the option takes no value"},
      {{"10.0.0", "--jo"}, "--jo: the option needs a value"},
      {{"10.0.0", "-uj"}, "-j: the option needs a value"},
      {{"-f", "Lines", "-h"}, "Lines: the format must be lines, table, csv, json or map"},
      {{"--format=", "-l"}, "\"\": the format must be lines, table, csv, json or map"},
      {{"-l", "10.0.0"}, "10.0.0: a network cannot be combined with --local"},
      {{}, "jobs 512 local"},
      {{"--", "eth0", "-u", "10.0.0.1x"}, "jobs 512 device eth0 device -u device 10.0.0.1x"},
      {{"10.0.0", "-n", "--changes", "-u"}, "jobs 512 unnamed changes -u 10.0.0"},
      {{"--no", "--ch=f", "-fjson", "10.0.0"}, "jobs 512 format 3 unnamed changes f 10.0.0"},
      {{"--changes=", "-l"}, "--changes needs the name of a file"},
      {{"--changes", "f", "-l", "-u"}, "--changes cannot be combined with --up or --free"},
      {{"--free", "--changes", "f", "-l"}, "--changes cannot be combined with --up or --free"},
      {{"--changes", "f", "-l", "-ftable"},
       "--changes cannot be combined with a format other than json"},
      {{"10.0.0", "-"}, std::string("-") + NoNetwork}};
  for (const auto& [arguments, result] : rows) {
    EXPECT_EQ(Outcome([&, &given = arguments] { return Read(given); }), result);
  }
  for (const std::string jobs : {"0", "1025", "-1", "4x"}) {
    EXPECT_EQ(Outcome([&] {
                return Read({"-j", jobs, "-l"});
              }),
              jobs + ": the number of jobs must be from 1 to 1024");
  }
}

TEST(WithoutRepeats, KeepsEachAddressAtItsFirstPlace) {
  const std::pair<std::vector<std::string>, std::string> rows[] = {
      {{"10.0.0.5", "10.0.0.5", "10.0.0.1-10.0.0.9"}, "5-5 1-4 6-9 "},
      {{"10.0.0.2-10.0.0.4", "10.0.0.5-10.0.0.6", "10.0.0.1-10.0.0.9"}, "2-4 5-6 1-1 7-9 "},
      {{"10.0.0.1-10.0.0.9", "10.0.0.3-10.0.0.9", "10.0.0.9-10.0.0.10"}, "1-9 10-10 "},
      {{"10.0.0.6-10.0.0.8", "10.0.0.2-10.0.0.3", "10.0.0.3-10.0.0.7", "10.0.0.1-10.0.0.9"},
       "6-8 2-3 4-5 1-1 9-9 "},
      {{"255.255.255.254/31", "255.255.255.255"}, "254-255 "}};
  for (const auto& [arguments, result] : rows) {
    std::vector<Network> networks;
    for (const std::string& argument : arguments) networks.push_back(ParseNetwork(argument));
    std::string parts;
    for (const Network& part : WithoutRepeats(networks)) {
      parts += std::to_string(part.First & 0xFFU) + "-" + std::to_string(part.Last & 0xFFU) + " ";
    }
    EXPECT_EQ(parts, result);
  }
}

// A directory of lists that ends with its owner.
class Lists {
 public:
  Lists() { EXPECT_NE(mkdtemp(root_.data()), nullptr); }
  ~Lists() { std::filesystem::remove_all(root_); }
  Lists(const Lists&) = delete;
  Lists& operator=(const Lists&) = delete;

  void Write(const std::string& path, const std::string& content) const {
    const std::filesystem::path file = root_ + path;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
  }
  void Date(const std::string& path, std::time_t time) const {
    const timespec both[] = {{time, 0}, {time, 0}};
    EXPECT_EQ(utimensat(AT_FDCWD, (root_ + path).c_str(), both, 0), 0);
  }
  [[nodiscard]] const std::string& Root() const { return root_; }
  [[nodiscard]] Makers Open() const { return {root_, root_ + "/own"}; }

 private:
  std::string root_ = testing::TempDir() + "hostsweep.XXXXXX";
};

TEST(Makers, TakesTheSmallestBlockOfTheFirstList) {
  const Lists lists;
  const auto makers = [&](const std::vector<std::string>& addresses) {
    Makers known = lists.Open();
    std::string text;
    for (const std::string& address : addresses) text += known.MakerOf(address) + "|";
    return text;
  };
  const std::vector<std::string> addresses = {
      "00-1A-2B-3C-4D-5E", "00-1A-2C-DF-FF-FF", "00-1A-2C-E0-00-00", "00-1A-2D-12-3F-FF",
      "00-1A-2D-12-40-00", "00-1A-2E-00-00-00", "02-1A-2B-3C-4D-5E"};
  EXPECT_EQ(makers(addresses), "||||||(locally administered)|");
  lists.Write("/opt/homebrew/share/nmap/nmap-mac-prefixes",
              "# 24\n001A2D123 N 36\r\n001A2CD\tN 28\n001A2B N\n");
  EXPECT_EQ(makers(addresses), "N|N 28||N 36|||(locally administered)|");
  lists.Write("/usr/share/hwdata/oui.txt", "OUI (x)\n001A2E     (base 16)\t\tH\n");
  EXPECT_EQ(makers(addresses), "|||||H|(locally administered)|");
  lists.Write("/usr/share/ieee-data/oui36.txt",
              "00-1A-2D   (hex)\t\tI 36\r\n123000-123FFF     (base 16)\t\tI 36\r\n");
  lists.Write(
      "/usr/share/ieee-data/iab.txt",
      "00-1A-2D           (hex)      A 36     \n124000-124FFF      (base 16)  \u00C9t\u00E9");
  lists.Write("/usr/share/ieee-data/mam.txt",
              "00-1A-2C   (hex)\t\tI 28\r\nD00000-DFFFFF     (base 16)\t\tI 28\r\n");
  lists.Write("/usr/share/ieee-data/oui.txt",
              "00-1A-2B   (hex)\t\tI (x)\r\n001A2B     (base 16)\t\tI (x) \r\n\r\n" +
                  std::string(600, 'x') + "\r\n001A2C     (base 16)\t\tIEEE\r\n" +
                  "001A2C     (base 16)\t\tAgain");
  EXPECT_EQ(makers(addresses), "I (x)|I 28|IEEE|I 36|\u00C9t\u00E9||(locally administered)|");
  EXPECT_EQ(makers({"", "00-1A-2B-3C-4D", "00:1A:2B:3C:4D:5E", "00-1A-2B-3C-4D-5G",
                    "00-1A-2B-3C-4D-5E-6F"}),
            "|||||");
  EXPECT_EQ(
      makers({"52-54-00-12-34-56", "52-54-01-12-34-56", "0A-00-27-00-00-00", "FA-16-3E-12-34-56",
              "02-42-AC-11-00-02", "0A-58-0A-F4-00-05", "02-00-C6-12-00-01"}),
      "(virtual machine)|(locally administered)|(virtual machine)|(virtual machine)|"
      "(container)|(container)|(locally administered)|");
}

TEST(Makers, ReadsItsOwnListUnlessAnotherIsNewer) {
  constexpr std::time_t Midnight = 1'782'432'000;  // 2026-06-26 in UTC
  const char* const ieee = "/usr/share/ieee-data/oui.txt";
  const char* const nmap = "/usr/share/nmap/nmap-mac-prefixes";
  const Lists lists;
  const auto used = [&] {
    Makers makers = lists.Open();
    std::string source = makers.Source();
    if (source != "none") source.erase(0, lists.Root().size());
    return source + " " + makers.MakerOf("00-1A-2B-3C-4D-5E");
  };
  EXPECT_EQ(used(), "none ");
  lists.Write(nmap, "001A2B N\n");
  lists.Date(nmap, Midnight - 1);
  EXPECT_EQ(used(), std::string(nmap) + ", 2026-06-25 N");
  lists.Write("/own", "# 2026-06-25 blocks\n001A2B O\n");
  EXPECT_EQ(used(), "/own, 2026-06-25 O");
  lists.Date(nmap, Midnight);
  EXPECT_EQ(used(), std::string(nmap) + ", 2026-06-26 N");
  lists.Write("/own", "# 2026-06-25 blocks\n001A2B O\n001A2B3 O 28\n");
  EXPECT_EQ(used(), std::string(nmap) + ", 2026-06-26 O 28");  // nmap's has 24-bit blocks only
  lists.Write(nmap, "001A2B N\n001A2C3 N 28\n");
  lists.Date(nmap, Midnight);
  EXPECT_EQ(used(), std::string(nmap) + ", 2026-06-26 N");
  lists.Write(ieee, "001A2B     (base 16)\t\tI\r\n");
  lists.Date(ieee, Midnight - 1);
  EXPECT_EQ(used(), std::string(nmap) + ", 2026-06-26 N");
  lists.Date(ieee, Midnight);
  EXPECT_EQ(used(), "/usr/share/ieee-data, 2026-06-26 O 28");
  lists.Write("/own", "# 2026-06-25 blocks\n001A2B O\n");
  EXPECT_EQ(used(), "/usr/share/ieee-data, 2026-06-26 I");
  lists.Write(ieee, "no blocks\n");
  EXPECT_EQ(used(), std::string(nmap) + ", 2026-06-26 N");
  lists.Write("/own", "001A2B O\n");  // without a date it is older than any other
  EXPECT_EQ(used(), std::string(nmap) + ", 2026-06-26 N");
}

TEST(Makers, DoesNotTakeAnUnreadableListForAnEmptyOne) {
  for (const std::string path :
       {"/own", "/usr/share/ieee-data/oui.txt", "/usr/share/nmap/nmap-mac-prefixes"}) {
    const Lists lists;
    lists.Write(path + "/a file in its place", "");
    Makers makers = lists.Open();
    for (int i = 0; i < 2; ++i) {
      try {
        ADD_FAILURE() << path << ": " << makers.MakerOf("00-1A-2B-3C-4D-5E");
      } catch (const std::system_error& error) {
        EXPECT_EQ(error.what(), lists.Root() + path + ": Is a directory");
      }
    }
    EXPECT_EQ(makers.MakerOf("02-1A-2B-3C-4D-5E"), "(locally administered)");
  }
}

// A finding, without a name if `name` is null; the host is up if there is a hardware address.
Finding Found(std::uint32_t host, const char* name, const char* hardwareAddress) {
  Finding finding;
  finding.Address = host;
  if (name != nullptr) finding.Name = name;
  if (name != nullptr) finding.Source = NameSource::Mdns;
  finding.HardwareAddress = hardwareAddress;
  finding.Host = finding.HardwareAddress.empty() ? Presence::Absent : Presence::Up;
  return finding;
}

std::string Report(Format format, const Layout& layout, const std::vector<Finding>& findings) {
  const Lists lists;
  lists.Write("/usr/share/nmap/nmap-mac-prefixes",
              "001A2B Maker, \"of\" long nam\u00C9s etc.\n001A2C \u00C9\n");
  Makers makers = lists.Open();
  const std::unique_ptr<Formatter> formatter = MakeFormatter(format, layout, makers);
  std::string text = formatter->Begin();
  for (const Finding& finding : findings) text += formatter->Add(finding);
  return text + formatter->End(true);
}

TEST(Formatter, WritesHostileNamesSafely) {
  const std::vector<Finding> findings = {Found(1, "a,\"\\\x1B\u202E\xE2\x82", "00-1A-2B-3C-4D-5E"),
                                         Found(2, "=1+1", "00-1A-2C-00-00-00"),
                                         Found(4, nullptr, ""), Found(255, "\t\x9B", "0:1")};
  const auto report = [&](Format format, bool isForTerminal) {
    return Report(format, {Selection::All, isForTerminal, 32}, findings);
  };
  EXPECT_EQ(report(Format::Lines, false),
            "0.0.0.1=a,\"\\\x1B\u202E\xE2\x82=00-1A-2B-3C-4D-5E\n0.0.0.2==1+1=00-1A-2C-00-00-00\n"
            "0.0.0.4==\n0.0.0.255=\t\x9B=0:1\n");
  EXPECT_EQ(report(Format::Lines, true),
            "0.0.0.1=a,\"\\???\?=00-1A-2B-3C-4D-5E\n0.0.0.2==1+1=00-1A-2C-00-00-00\n"
            "0.0.0.4==\n0.0.0.255=?\?=0:1\n");
  EXPECT_EQ(report(Format::Table, false),
            "ADDRESS          HARDWARE ADDRESS   MAKER                   NAME\n"
            "0.0.0.1          00-1A-2B-3C-4D-5E  Maker, \"of\" long nam\u00C9s  a,\"\\????\n"
            "0.0.0.2          00-1A-2C-00-00-00  \u00C9                       =1+1\n"
            "0.0.0.255        0:1                                        ??\n");
  EXPECT_EQ(report(Format::Csv, false),
            "address,name,hardware_address,maker,up,name_source\r\n"
            "0.0.0.1,\"a,\"\"\\\x1B\u202E\xE2\x82\",00-1A-2B-3C-4D-5E,"
            "\"Maker, \"\"of\"\" long nam\u00C9s etc.\",true,mdns\r\n"
            "0.0.0.2,'=1+1,00-1A-2C-00-00-00,\u00C9,true,mdns\r\n0.0.0.4,,,,false,\r\n"
            "0.0.0.255,'\t\x9B,0:1,,true,mdns\r\n");
  EXPECT_NE(report(Format::Csv, true).find("\n0.0.0.255,??,"), std::string::npos);
  EXPECT_EQ(
      report(Format::Json, false),
      R"({"address":"0.0.0.1","name":"a,\"\\\u001b\u202e)"
      "\uFFFD\uFFFD"
      R"(","hardware_address":"00-1A-2B-3C-4D-5E","maker":"Maker, \"of\" long nam)"
      "\u00C9s etc.\",\"up\":true,\"name_source\":\"mdns\"}\n"
      R"({"address":"0.0.0.2","name":"=1+1","hardware_address":"00-1A-2C-00-00-00","maker":")"
      "\u00C9\",\"up\":true,\"name_source\":\"mdns\"}\n"
      R"({"address":"0.0.0.4","name":null,"hardware_address":null,"maker":null,"up":false,"name_source":null})"
      "\n"
      R"({"address":"0.0.0.255","name":"\u0009)"
      "\uFFFD\",\"hardware_address\":\"0:1\",\"maker\":null,\"up\":true,\"name_source\":\"mdns\"}"
      "\n");
}

TEST(Formatter, ReportsWhatIsSelected) {
  const std::vector<Finding> findings = {Found(30, nullptr, ""), Found(31, "n", ""),
                                         Found(32, "n", "02-00-00-00-00-00")};
  const std::tuple<Format, Selection, const char*> rows[] = {
      {Format::Lines, Selection::Up, "0.0.0.32=n=02-00-00-00-00-00\n"},
      {Format::Lines, Selection::Free, "0.0.0.30==\n"},
      {Format::Csv, Selection::Free,
       "address,name,hardware_address,maker,up,name_source\r\n0.0.0.30,,,,false,\r\n"},
      {Format::Json, Selection::Free,
       R"({"address":"0.0.0.30","name":null,"hardware_address":null,"maker":null,"up":false,"name_source":null})"
       "\n"},
      {Format::Table, Selection::Free,
       "ADDRESS          HARDWARE ADDRESS   MAKER                   NAME\n0.0.0.30\n"},
      {Format::Map, Selection::Free,
       "0.0.0.30                                      . \n0.0.0.32         \n"}};
  for (const auto& [format, selection, text] : rows) {
    EXPECT_EQ(Report(format, {selection, false, 32}, findings), text);
  }
}

TEST(Formatter, DrawsAMapInAlignedRows) {
  std::vector<Finding> findings = {Found(61, "n", ""),     Found(62, nullptr, ""),
                                   Found(63, nullptr, ""), Found(64, nullptr, "x"),
                                   Found(65, nullptr, ""), Found(66, nullptr, ""),
                                   Found(66, nullptr, "")};
  findings[2].HasTrouble = true;
  findings[4].IsReserved = true;
  findings[6].Host = Presence::Unknown;
  const std::string indent(29, ' ');
  const std::string rest = "0.0.0.64        #-.\n0.0.0.66          ?\n";
  EXPECT_EQ(Report(Format::Map, {}, findings), "0.0.0.61        " + indent + "+.?\n" + rest);
  EXPECT_EQ(Report(Format::Map, {Selection::All, true, 64}, findings),
            "0.0.0.61        " + std::string(32, ' ') + indent + "+.?\n" + rest);
  Makers makers;
  const std::unique_ptr<Formatter> map = MakeFormatter(Format::Map, {}, makers);
  EXPECT_EQ(map->Add(findings[1]), "");
  EXPECT_EQ(map->Add(findings[2]), "0.0.0.62        " + indent + " .?\n");  // complete: at once
}

}  // namespace
}  // namespace hostsweep
