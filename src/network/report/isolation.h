// Whether a sweep of the local networks has found any host but this machine and its gateway.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "network/engine/finding.h"
#include "platform/network/network_stack.h"

namespace hostsweep {

class Isolation {
 public:
  // Finds out the addresses of this machine and its default gateway, which not every system tells.
  // Sends nothing.
  explicit Isolation(NetworkStack& stack);

  void Add(const Finding& finding);

  // A sentence for the user if no finding was of another host; else nothing.
  [[nodiscard]] std::optional<std::string> Describe() const;

 private:
  std::vector<std::uint32_t> expected_;
  bool isAlone_ = true;
};

}  // namespace hostsweep
