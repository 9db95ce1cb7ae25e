#include "platform/network/neighbour.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace hostsweep {
namespace {

std::tuple<int, std::uint32_t> Key(const Neighbour& entry) { return {entry.Device, entry.Address}; }

}  // namespace

NeighbourTable::NeighbourTable(std::vector<Neighbour> entries) : entries_(std::move(entries)) {
  std::sort(entries_.begin(), entries_.end(),
            [](const Neighbour& left, const Neighbour& right) { return Key(left) < Key(right); });
}

const Neighbour* NeighbourTable::Find(int device, std::uint32_t address) const {
  const std::tuple<int, std::uint32_t> wanted = {device, address};
  const auto found =
      std::lower_bound(entries_.begin(), entries_.end(), wanted,
                       [](const Neighbour& entry, const auto& key) { return Key(entry) < key; });
  return found != entries_.end() && Key(*found) == wanted ? &*found : nullptr;
}

}  // namespace hostsweep
