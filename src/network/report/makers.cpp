#include "network/report/makers.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <optional>

namespace hostsweep {
namespace {

constexpr std::size_t AddressDigits = 12;

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// Reads a file line by line, in large chunks: the standard library's are small in some systems.
class LineReader {
 public:
  explicit LineReader(const std::string& path) : file_(std::fopen(path.c_str(), "r")) {
    if (file_) std::setvbuf(file_.get(), chunk_.data(), _IOFBF, chunk_.size());
  }

  [[nodiscard]] bool IsOpen() const { return file_ != nullptr; }

  // The next line; false at the end. A line that is too long to be one of a list comes in parts.
  bool Next(std::string_view& line) {
    if (std::fgets(line_.data(), static_cast<int>(line_.size()), file_.get()) == nullptr) {
      return false;
    }
    line = line_.data();
    return true;
  }

 private:
  std::array<char, 512> line_ = {};
  std::vector<char> chunk_ = std::vector<char>(65536);
  std::unique_ptr<std::FILE, Closer> file_;  // after its buffer, so that it is closed before
};

std::string_view Trimmed(std::string_view text) {
  constexpr const char* WhiteSpace = " \t\r\n";
  const std::size_t first = text.find_first_not_of(WhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(WhiteSpace) - first + 1);
}

// The number that the hexadecimal digits are; nothing if any of them is none. Letters are upper
// case.
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
std::optional<std::uint64_t> NumberOf(const std::string& text) {
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

}  // namespace

std::string Makers::MakerOf(const std::string& hardwareAddress) {
  constexpr std::uint64_t LocalBit = 0x02'00'00'00'00'00;
  const std::optional<std::uint64_t> address = NumberOf(hardwareAddress);
  if (!address) return {};
  if ((*address & LocalBit) != 0) return "(locally administered)";
  if (!isLoaded_) Load();
  for (const std::uint32_t digits : {9U, 7U, 6U}) {
    const Block wanted = {*address >> 4 * (AddressDigits - digits), digits, 0};
    const auto found = std::lower_bound(blocks_.begin(), blocks_.end(), wanted);
    if (found != blocks_.end() && found->Digits == digits && found->Prefix == wanted.Prefix) {
      return names_.c_str() + found->Maker;
    }
  }
  return {};
}

void Makers::Load() {
  isLoaded_ = true;
  const std::string share = root_ + "/usr/share/";
  for (const char* const name : {"oui.txt", "mam.txt", "oui36.txt"}) {
    LoadIeeeFile(share + "ieee-data/" + name);
  }
  if (blocks_.empty()) LoadIeeeFile(share + "hwdata/oui.txt");
  for (const char* const prefix : {"/usr", "/usr/local", "/opt/homebrew"}) {
    if (blocks_.empty()) LoadNmapFile(root_ + prefix + "/share/nmap/nmap-mac-prefixes");
  }
  std::sort(blocks_.begin(), blocks_.end());
}

// A 24-bit block has two lines of interest,
//   00-22-72   (hex)              American Micro-Fuel Device Corp.
//   002272     (base 16)          American Micro-Fuel Device Corp.
// and a smaller one too: the 24 bits that it is in, and which of the other 24 bits it has.
//   74-1A-E0   (hex)              Private
//   900000-9FFFFF     (base 16)   Private
void Makers::LoadIeeeFile(const std::string& path) {
  constexpr std::string_view HexMark = "(hex)";
  constexpr std::string_view BaseMark = "(base 16)";
  LineReader reader(path);
  if (!reader.IsOpen()) return;
  std::string vendor;
  for (std::string_view line; reader.Next(line);) {
    const std::size_t mark = line.find('(');
    if (mark == std::string_view::npos) continue;
    const std::string_view head = Trimmed(line.substr(0, mark));
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
  if (!reader.IsOpen()) return;
  for (std::string_view line; reader.Next(line);) {
    const std::size_t space = line.find(' ');
    if (space != std::string_view::npos) Add(line.substr(0, space), line.substr(space));
  }
}

// Adds a block, unless the digits are not those of one.
void Makers::Add(std::string_view digits, std::string_view maker) {
  const std::optional<std::uint64_t> prefix = ParseDigits(digits);
  const std::size_t count = digits.size();
  if (!prefix || (count != 6 && count != 7 && count != 9)) return;
  blocks_.push_back(
      {*prefix, static_cast<std::uint32_t>(count), static_cast<std::uint32_t>(names_.size())});
  names_ += Trimmed(maker);
  names_ += '\0';
}

}  // namespace hostsweep
