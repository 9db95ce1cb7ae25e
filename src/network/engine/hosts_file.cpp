#include "network/engine/hosts_file.h"

#include <algorithm>
#include <string_view>

#include "network/engine/name_text.h"
#include "network/plan/address.h"
#include "platform/line_reader.h"

namespace hostsweep {
namespace {

// Takes the next word, which white space separates, from the line; empty if no word is left.
std::string_view TakeWord(std::string_view& line) {
  constexpr std::string_view WhiteSpace = " \t\r\f\v";
  line.remove_prefix(std::min(line.find_first_not_of(WhiteSpace), line.size()));
  const std::string_view word = line.substr(0, line.find_first_of(WhiteSpace));
  line.remove_prefix(word.size());
  return word;
}

}  // namespace

HostsFile::HostsFile(const std::string& path) {
  LineReader reader(path);
  for (std::string_view line; reader.Next(line);) {
    line = line.substr(0, line.find('#'));
    const std::optional<std::uint32_t> address = ParseAddress(TakeWord(line));
    const std::string_view name = TakeWord(line);
    if (address && !name.empty()) names_.emplace(*address, NameText(name));
  }
}

std::optional<std::string> HostsFile::NameOf(std::uint32_t address) const {
  const auto found = names_.find(address);
  if (found == names_.end()) return {};
  return found->second;
}

}  // namespace hostsweep
