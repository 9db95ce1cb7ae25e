#include "network/report/makers.h"

#include <algorithm>
#include <array>
#include <optional>

#include "app/install_layout.h"
#include "app/installed_path.h"
#include "platform/file.h"
#include "platform/line_reader.h"
#include "platform/program_path.h"
#include "platform/text/characters.h"

namespace hostsweep {
namespace {

constexpr std::size_t AddressDigits = 12;

// The number that the hexadecimal digits are; nothing if any character is not a digit. Letters are
// upper case.
std::optional<std::uint64_t> ParseDigits(std::string_view digits) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  std::uint64_t number = 0;
  for (const char digit : digits) {
    const std::size_t value = Digits.find(digit);
    if (value == std::string_view::npos) return {};
    number = number << 4 | value;
  }
  return number;
}

// The number that a hardware address like 00-1A-2B-3C-4D-5E is; nothing for any other form.
std::optional<std::uint64_t> ParseCardAddress(const std::string& text) {
  std::string digits;
  if (text.size() != 17) return {};
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (i % 3 != 2) {
      digits += text[i];
    } else if (text[i] != '-') {
      return {};
    }
  }
  return ParseDigits(digits);
}

// The digits that all addresses of a range like A00000-AFFFFF have in common.
std::string_view CommonDigits(std::string_view range) {
  const std::size_t hyphen = std::min(range.find('-'), range.size());
  std::size_t count = 0;
  while (count < hyphen && hyphen + 1 + count < range.size() &&
         range[count] == range[hyphen + 1 + count]) {
    ++count;
  }
  return range.substr(0, count);
}

// The probable user of a locally administered address.
std::string UserOf(std::uint64_t address) {
  struct Block {
    std::uint64_t Prefix;
    unsigned Digits;
    const char* User;
  };
  constexpr std::array<Block, 5> Blocks = {{
      {0x52'54'00, 6, "(virtual machine)"},  // QEMU and libvirt
      {0x0A'00'27, 6, "(virtual machine)"},  // VirtualBox: this machine in a host-only network
      {0xFA'16'3E, 6, "(virtual machine)"},  // OpenStack Neutron's `base_mac`
      {0x02'42, 4, "(container)"},           // Docker
      {0x0A'58, 4, "(container)"},           // Kubernetes: the network plugins' own prefix
  }};
  for (const Block& block : Blocks) {
    if (address >> 4 * (AddressDigits - block.Digits) == block.Prefix) return block.User;
  }
  return "(locally administered)";
}

struct List {
  const char* Path;
  // If `Path` is a directory: its files, as IEEE publishes them. Empty if it is nmap's list.
  std::vector<const char*> Files;
};

// The lists that a system can have, in the order in which they are tried.
const std::vector<List>& SystemLists() {
  static const std::vector<List> lists = {
      {"/usr/share/ieee-data", {"/oui.txt", "/mam.txt", "/oui36.txt", "/iab.txt"}},
      {"/usr/share/hwdata", {"/oui.txt"}},
      {"/usr/share/nmap/nmap-mac-prefixes", {}},
      {"/usr/local/share/nmap/nmap-mac-prefixes", {}},
      {"/opt/homebrew/share/nmap/nmap-mac-prefixes", {}}};
  return lists;
}

// The date with which the first line of the program's own list begins; empty without a list.
std::string DateIn(const std::string& path) {
  constexpr std::string_view Mark = "# ";
  constexpr std::size_t Size = 10;  // like 2026-06-26
  LineReader reader(path);
  std::string_view line;
  if (!reader.Next(line) || line.substr(0, Mark.size()) != Mark) return {};
  return std::string(line.substr(Mark.size(), Size));
}

}  // namespace

Makers::Makers() : ownList_(InstalledPath(ProgramPath(), std::string(InstalledData) + "/makers")) {}

std::string Makers::MakerOf(const std::string& hardwareAddress) {
  constexpr std::uint64_t LocalBit = 0x02'00'00'00'00'00;
  const std::optional<std::uint64_t> address = ParseCardAddress(hardwareAddress);
  if (!address) return {};
  if ((*address & LocalBit) != 0) return UserOf(*address);
  EnsureLoaded();
  for (const std::uint32_t digits : {9U, 7U, 6U}) {
    const Block wanted = {*address >> 4 * (AddressDigits - digits), digits, 0};
    const auto found = std::lower_bound(blocks_.begin(), blocks_.end(), wanted);
    if (found != blocks_.end() && found->Digits == digits && found->Prefix == wanted.Prefix) {
      return names_.c_str() + found->Maker;
    }
  }
  return {};
}

std::string Makers::Source() {
  EnsureLoaded();
  return source_;
}

void Makers::EnsureLoaded() {
  if (isLoaded_) return;
  Load();
  std::sort(blocks_.begin(), blocks_.end());
  isLoaded_ = true;
}

void Makers::Load() {
  const std::string ownDate = DateIn(ownList_);
  for (const List& list : SystemLists()) {
    const std::string path = root_ + list.Path;
    const std::string date = ModificationDay(list.Files.empty() ? path : path + list.Files.front());
    if (date <= ownDate) continue;
    for (const char* const file : list.Files) LoadIeeeFile(path + file);
    if (list.Files.empty()) LoadNmapFile(path);
    if (blocks_.empty()) continue;
    source_ = path;
    source_.append(", ").append(date);
    // Of two equal blocks, the one that was added first counts.
    if (!HasSmallBlocks()) LoadNmapFile(ownList_);
    return;
  }
  LoadNmapFile(ownList_);
  if (!blocks_.empty()) source_ = ownList_ + ", " + ownDate;
}

bool Makers::HasSmallBlocks() const {
  constexpr std::uint32_t DigitsOfALarge = 6;
  return std::any_of(blocks_.begin(), blocks_.end(),
                     [](const Block& block) { return block.Digits > DigitsOfALarge; });
}

// A 24-bit block has two lines of interest:
//   00-22-72   (hex)              American Micro-Fuel Device Corp.
//   002272     (base 16)          American Micro-Fuel Device Corp.
// A smaller block has two as well: the 24 bits that it is in, and its range of the other 24 bits.
//   74-1A-E0   (hex)              Private
//   900000-9FFFFF     (base 16)   Private
void Makers::LoadIeeeFile(const std::string& path) {
  constexpr std::string_view HexMark = "(hex)";
  constexpr std::string_view BaseMark = "(base 16)";
  LineReader reader(path);
  std::string vendor;
  for (std::string_view line; reader.Next(line);) {
    const std::size_t mark = line.find('(');
    if (mark == std::string_view::npos) continue;
    const std::string_view head = TrimmedBytes(line.substr(0, mark));
    const std::string_view rest = line.substr(mark);
    if (rest.substr(0, HexMark.size()) == HexMark && head.size() == 8) {
      vendor = {head[0], head[1], head[3], head[4], head[6], head[7]};
    } else if (rest.substr(0, BaseMark.size()) == BaseMark) {
      const std::string_view maker = rest.substr(BaseMark.size());
      if (head.find('-') == std::string_view::npos) {
        Add(head, maker);
      } else {
        Add(vendor + std::string(CommonDigits(head)), maker);
      }
    }
  }
}

void Makers::LoadNmapFile(const std::string& path) {
  LineReader reader(path);
  for (std::string_view line; reader.Next(line);) {
    const std::size_t space = line.find_first_of(" \t");
    if (space != std::string_view::npos) Add(line.substr(0, space), line.substr(space));
  }
}

// Adds the block that begins with these digits. Ignores what is not 6, 7 or 9 hexadecimal digits.
void Makers::Add(std::string_view digits, std::string_view maker) {
  const std::optional<std::uint64_t> prefix = ParseDigits(digits);
  const std::size_t count = digits.size();
  if (!prefix || (count != 6 && count != 7 && count != 9)) return;
  blocks_.push_back(
      {*prefix, static_cast<std::uint32_t>(count), static_cast<std::uint32_t>(names_.size())});
  names_ += TrimmedBytes(maker);
  names_ += '\0';
}

}  // namespace hostsweep
