// macOS: arp(8) reads the cache, with the words that hostsweep expects. Without -n it would ask the
// DNS for the address's name and print it before the entry.
#include "platform/file.h"
#include "tools/arp_cache.h"
#include "tools/tool.h"

namespace hostsweep {

std::string OtherArp() {
  const std::string other = ProgramBehind("Arp");
  // Where the file system ignores letter case, arp is found by either name.
  const bool isSystems = IdentifyFile(other) == IdentifyFile(ProgramBehind("arp"));
  return isSystems ? "" : other;
}

int PrintArpEntry(const std::string& address) {
  const std::string arp = ProgramBehind("arp");
  return arp.empty() ? Fail("Arp", "arp: not found", ExitNotFound) : Become(arp, {"-n", address});
}

}  // namespace hostsweep
