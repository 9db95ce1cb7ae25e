// One address in work: its way, the search for its host and for its name, and what has gone wrong.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "network/engine/finding.h"
#include "network/engine/host_search.h"
#include "network/engine/name_servers.h"
#include "network/engine/troubles.h"
#include "platform/network/network_stack.h"

namespace hostsweep {

class Target {
 public:
  // `link`: that of the device that the way leads to, read before the first probe.
  Target(std::uint32_t address, const Route& way, const LinkState& link);

  [[nodiscard]] std::uint32_t Address() const { return address_; }
  [[nodiscard]] const Route& Way() const { return way_; }
  [[nodiscard]] const HostSearch& Search() const { return search_; }

  // True if it cannot be swept: nothing is to be asked, and there is no finding.
  [[nodiscard]] bool IsSkipped() const { return isSkipped_; }

  // True if a probe is to be sent before anything else can be known.
  [[nodiscard]] bool WantsProbe() const;

  // True if a look into the ARP cache can tell something.
  [[nodiscard]] bool WantsLook() const;

  // True if nothing more is to be found out.
  [[nodiscard]] bool IsDone() const { return isSkipped_ || (IsSearched() && isNamed_); }

  void Handle(const SearchEvent& event, Clock::time_point now);

  // Takes the way and the link as they are now. If they have changed since the probe, and that
  // makes a difference to what has been found, the search begins anew, once.
  void Confirm(const Route& way, const LinkState& link, Clock::time_point now);

  // True if `Confirm` has to be called before the search is taken to be over.
  [[nodiscard]] bool NeedsConfirmation() const;

  // For an address of this machine itself. In bytes.
  void SetHardwareAddress(const std::string& bytes) { hardwareAddress_ = bytes; }

  void SetName(NameResult result);

  [[nodiscard]] Finding Result() const;
  [[nodiscard]] TroubleSet Troubles() const;

  // The gateway or the device by which the address is reached, in words.
  [[nodiscard]] std::string WayInWords() const;

 private:
  [[nodiscard]] bool IsSearched() const;

  std::uint32_t address_;
  Route way_;
  std::uint64_t changes_;
  HostSearch search_;
  bool isConfirmed_ = false;
  bool isSkipped_ = false;
  bool isNamed_ = false;
  bool hasNameTrouble_ = false;
  std::string hardwareAddress_;  // bytes
  std::optional<std::string> name_;
  TroubleSet troubles_;
};

}  // namespace hostsweep
