// One address being swept: the way to it, the search for its host and for its name, and what has
// gone wrong.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "network/engine/finding.h"
#include "network/engine/host_search.h"
#include "network/engine/name_result.h"
#include "network/engine/troubles.h"
#include "platform/network/network_stack.h"

namespace hostsweep {

class Target {
 public:
  // `link`: of the device that the way leads to, read before the first probe. `wantsName`: a name
  // is to be found, too.
  Target(std::uint32_t address, const Route& way, const LinkState& link, bool wantsName);

  [[nodiscard]] std::uint32_t Address() const { return address_; }
  [[nodiscard]] const Route& Way() const { return way_; }
  [[nodiscard]] const HostSearch& Search() const { return search_; }

  // True if the address cannot be swept: nothing is to be asked, and there is no finding.
  [[nodiscard]] bool IsSkipped() const { return isSkipped_; }

  // True if a probe is to be sent before anything else can be known.
  [[nodiscard]] bool WantsProbe() const;

  // True if a look into the ARP cache can tell something.
  [[nodiscard]] bool WantsLook() const;

  // True if the host is to be asked for its name: it is up, and no other source has a name.
  [[nodiscard]] bool WantsHostName() const;

  // True if nothing more is to be found out.
  [[nodiscard]] bool IsDone() const;

  void Handle(const SearchEvent& event, Clock::time_point now);

  // Takes the way and the link as they are now. If they have changed since the probe, and that
  // makes a difference to what has been found, the search begins anew, once; it ends if no host can
  // be reached any more.
  void Confirm(const Route& way, const LinkState& link, Clock::time_point now);

  // True if `Confirm` has to be called before the search is taken to be over.
  [[nodiscard]] bool NeedsConfirmation() const;

  // For an address of this machine itself: the bytes of its hardware address.
  void SetHardwareAddress(const std::string& bytes) { hardwareAddress_ = bytes; }

  // What /etc/hosts and the name servers say of the address.
  void SetLookUp(NameResult result);

  // To be called when the host is asked for its name, and with the result.
  void BeginAskingHost() { asking_ = Asking::Asked; }
  void SetHostName(NameResult result);

  [[nodiscard]] Finding Result() const;
  [[nodiscard]] TroubleSet Troubles() const;

  // The gateway or the device by which the address is reached, in words.
  [[nodiscard]] std::string WayInWords() const;

 private:
  enum class Asking { NotAsked, Asked, Over };

  [[nodiscard]] bool IsSearched() const;
  [[nodiscard]] bool IsUp() const;
  void TakeName(NameResult result);

  std::uint32_t address_;
  Route way_;
  std::uint64_t changes_;
  HostSearch search_;
  bool isConfirmed_ = false;
  bool isSkipped_ = false;
  bool wantsName_;
  bool isLookedUp_ = false;  // the lookup is over
  bool hasLookUpFailed_ = false;
  Asking asking_ = Asking::NotAsked;  // the host
  std::string hardwareAddress_;       // bytes
  std::optional<std::string> name_;
  NameSource source_ = NameSource::None;
  TroubleSet troubles_;
};

}  // namespace hostsweep
