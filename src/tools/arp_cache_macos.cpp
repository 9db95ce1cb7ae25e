// macOS: arp(8) reads the cache, with the words that hostsweep expects.
#include "tools/arp_cache.h"

namespace hostsweep {

bool CanReadArpCache() { return false; }

std::optional<ArpEntry> FindArpEntry(const std::string& /*address*/) { return {}; }

}  // namespace hostsweep
