// The makers of network cards, from a list on this machine.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace hostsweep {

// A list is read when it is first needed: the first list of these that is newer than the program's
// own and has any blocks, or else the program's own. Where a list has 24-bit blocks only, the
// program's own is read after it.
//   /usr/share/ieee-data      oui.txt, mam.txt, oui36.txt, iab.txt: as IEEE publishes them (Debian)
//   /usr/share/hwdata         oui.txt: the same, of 24-bit blocks only (Fedora, Arch)
//   /usr/share/nmap, /usr/local/share/nmap, /opt/homebrew/share/nmap
//                             nmap-mac-prefixes: lines of 6, 7 or 9 hexadecimal digits and a maker
// The date of a list is the day, in UTC, on which its file, or the first of its files, was last
// changed. The program's own, hostsweep/makers in the directory of data that the program is
// installed with, has the form of nmap's. Its first line, a comment, begins with its date, as the
// time of its file is that of a release: "# 2026-06-26 ...".
class Makers {
 public:
  // From the lists of this machine.
  Makers();

  // From those below this directory, and from this list as the program's own.
  Makers(std::string root, std::string ownList)
      : root_(std::move(root)), ownList_(std::move(ownList)) {}

  // The maker of the card with this hardware address, which has the form 00-1A-2B-3C-4D-5E: the
  // holder of the smallest block that the address is in. For a locally administered address:
  // "(virtual machine)" or "(container)" if well-known software makes up such addresses for these,
  // else "(locally administered)". Empty without a list, for an unknown maker, and for any other
  // form. The bytes are those of the list. Throws `std::system_error`, which names the file, if a
  // list is there and cannot be read.
  std::string MakerOf(const std::string& hardwareAddress);

  // The list that is used and its date, like "/usr/share/ieee-data, 2022-08-27", or "none". Throws
  // as `MakerOf` does.
  std::string Source();

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

  void EnsureLoaded();
  void Load();
  [[nodiscard]] bool HasSmallBlocks() const;
  void LoadIeeeFile(const std::string& path);
  void LoadNmapFile(const std::string& path);
  void Add(std::string_view digits, std::string_view maker);

  std::string root_;
  std::string ownList_;
  bool isLoaded_ = false;
  std::string source_ = "none";
  std::vector<Block> blocks_;  // sorted
  std::string names_;          // each ends with a null character
};

}  // namespace hostsweep
