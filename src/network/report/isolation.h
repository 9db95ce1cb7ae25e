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
  // Asks for the addresses of this machine, and for its default gateway, which is not known on
  // every system. Sends nothing.
  explicit Isolation(NetworkStack& stack);

  void Add(const Finding& finding);

  // A sentence for the user if the findings were of no other host; else nothing.
  [[nodiscard]] std::optional<std::string> Describe() const;

 private:
  std::vector<std::uint32_t> expected_;
  bool isAlone_ = true;
};

}  // namespace hostsweep
