// The addresses of several networks, one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "network/plan/network.h"

namespace hostsweep {

class AddressWalk {
 public:
  // The networks must outlive this object.
  explicit AddressWalk(const std::vector<Network>& networks) : networks_(networks) {}

  // The next address, from the first of the first network to the last of the last one; nothing
  // after that.
  std::optional<std::uint32_t> Next();

  [[nodiscard]] bool IsAtEnd() const { return network_ == networks_.size(); }

 private:
  const std::vector<Network>& networks_;
  std::size_t network_ = 0;   // of the next address
  std::uint64_t offset_ = 0;  // of the next address in it
};

}  // namespace hostsweep
