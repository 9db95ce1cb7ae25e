// The makers of network cards, from a list on this machine.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace hostsweep {

// The list is read when it is first needed: the first of these that has any blocks.
//   /usr/share/ieee-data      oui.txt, mam.txt, oui36.txt: as IEEE publishes them (Debian)
//   /usr/share/hwdata         oui.txt: the same, of 24-bit blocks only (Fedora, Arch)
//   /usr/share/nmap, /usr/local/share/nmap, /opt/homebrew/share/nmap
//                             nmap-mac-prefixes: lines of 6, 7 or 9 hexadecimal digits and a maker
class Makers {
 public:
  // All of these paths are taken below `root`, "" for the real ones.
  explicit Makers(std::string root = "") : root_(std::move(root)) {}

  // The maker of the card with this hardware address, which has the form 00-1A-2B-3C-4D-5E: the
  // holder of the smallest block that the address is in, or "(locally administered)" if its bit of
  // that meaning is set. Empty without a list, for an unknown maker, and for any other form. The
  // bytes are those of the list.
  std::string MakerOf(const std::string& hardwareAddress);

 private:
  // The addresses that begin with the `Digits` hexadecimal digits of `Prefix`.
  struct Block {
    std::uint64_t Prefix;
    std::uint32_t Digits;
    std::uint32_t Maker;  // offset in `names_`
    friend bool operator<(const Block& left, const Block& right) {
      return std::tie(left.Digits, left.Prefix, left.Maker) <
             std::tie(right.Digits, right.Prefix, right.Maker);
    }
  };

  void Load();
  void LoadIeeeFile(const std::string& path);
  void LoadNmapFile(const std::string& path);
  void Add(std::string_view digits, std::string_view maker);

  std::string root_;
  bool isLoaded_ = false;
  std::vector<Block> blocks_;  // sorted
  std::string names_;          // each ends with a null character
};

}  // namespace hostsweep
