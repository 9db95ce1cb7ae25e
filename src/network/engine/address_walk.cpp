#include "network/engine/address_walk.h"

namespace hostsweep {

std::optional<std::uint32_t> AddressWalk::Next() {
  if (IsAtEnd()) return {};
  const Network& network = networks_[network_];
  const auto address = static_cast<std::uint32_t>(network.First + offset_);
  ++offset_;
  if (address == network.Last) {
    ++network_;
    offset_ = 0;
  }
  return address;
}

}  // namespace hostsweep
