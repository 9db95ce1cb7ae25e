#include "network/report/isolation.h"

#include <algorithm>

#include "network/plan/plan.h"

namespace hostsweep {

Isolation::Isolation(NetworkStack& stack) {
  constexpr std::uint32_t FarAddress = 0xC0000201;  // 192.0.2.1, of no real network (RFC 5737)
  for (const DeviceAddress& device : stack.Devices()) expected_.push_back(device.Address);
  expected_.push_back(stack.RouteTo(FarAddress).Gateway);
}

void Isolation::Add(const Finding& finding) {
  const bool isFound = finding.Host == Presence::Up || finding.Name;
  const bool isExpected =
      std::find(expected_.begin(), expected_.end(), finding.Address) != expected_.end();
  if (isFound && !isExpected) isAlone_ = false;
}

std::optional<std::string> Isolation::Describe() const {
  if (!isAlone_) return {};
  return std::string("no host was found but this machine and its gateway; ") + OwnNetworkHint;
}

}  // namespace hostsweep
