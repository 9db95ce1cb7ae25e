#include "network/engine/pointer_records.h"

#include <algorithm>
#include <cstddef>
#include <map>

#include "network/engine/dns_message.h"

namespace hostsweep {

std::optional<std::vector<std::string>> PointerNamesIn(std::string_view message,
                                                       const std::string& name) {
  const std::optional<DnsMessage> read = ReadDnsMessage(message);
  if (!read) return {};
  std::map<std::string, std::string> aliases;
  std::multimap<std::string, std::string> pointers;
  for (const DnsRecord& record : read->Answers) {
    if (record.Class != InternetClass) continue;
    const std::string owner = Folded(record.Owner);
    if (record.Type == AliasType) aliases.emplace(owner, Folded(record.Target));
    if (record.Type == PointerType) pointers.emplace(owner, record.Target);
  }
  std::string owner = Folded(name);
  for (std::size_t i = 0; i < aliases.size(); ++i) {  // aliases can go in a circle
    const auto alias = aliases.find(owner);
    if (alias == aliases.end()) break;
    owner = alias->second;
  }
  std::vector<std::string> names;
  const auto [first, last] = pointers.equal_range(owner);
  for (auto pointer = first; pointer != last; ++pointer) names.push_back(pointer->second);
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace hostsweep
