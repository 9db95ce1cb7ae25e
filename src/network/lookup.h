// The sweep of one address, as a series of commands whose results somebody else brings.
#pragma once

#include <chrono>
#include <cstdint>

#include "network/finding.h"
#include "network/neighbourhood.h"
#include "network/troubles.h"
#include "platform/command_set.h"
#include "platform/text/text.h"
#include "sweep/host_record.h"

namespace hostsweep {

using Clock = std::chrono::steady_clock;

// The programs that a sweep can use. Without ping no address is probed, and without host none has a
// name.
struct Programs {
  bool HasPing = true;
  bool HasHost = true;
};

// Takes an address through the steps of `hostsweep`, in the same order: probe, host name, hardware
// address. Where the entry in the ARP cache is incomplete then, it is looked up once more, after
// the kernel has sent its last ARP request, so that a host that answers late is found. Where there
// is no entry although the kernel has been made to ask, the address is probed once more: the entry
// has been thrown away, or the network has gone.
class Lookup {
 public:
  enum class Step { Probe, Name, HardwareAddress, Done };

  Lookup(std::uint32_t address, Programs programs, Place place);

  [[nodiscard]] Step Current() const { return step_; }

  // The command of the current step, and the time before which it is not to be started.
  [[nodiscard]] Text Command() const;
  [[nodiscard]] Clock::time_point NotBefore() const { return notBefore_; }

  // The time until which the command can wait at no loss: where the probe had no answer, a look
  // into the ARP cache before the last request would probably have to be repeated.
  [[nodiscard]] Clock::time_point CanWaitUntil() const;

  // Notes that the command of the current step has been started, and gives the last such time.
  void Begin(Clock::time_point now) { begin_ = now; }
  [[nodiscard]] Clock::time_point BeginTime() const { return begin_; }

  // Takes the result of that command, and goes on to the next step.
  void Take(const CommandSet::Result& result, Clock::time_point now);

  // Ends the sweep of the address before its first step.
  void Skip(Trouble reason);

  // True after `Skip`: there is no finding.
  [[nodiscard]] bool IsSkipped() const { return isSkipped_; }

  [[nodiscard]] std::uint32_t Address() const { return address_; }
  [[nodiscard]] Finding Result() const;
  [[nodiscard]] const TroubleSet& Troubles() const { return troubles_; }

 private:
  void TakeProbe(const CommandSet::Result& result, Clock::time_point now);
  void TakeName(const CommandSet::Result& result);
  void TakeHardwareAddress(const CommandSet::Result& result);

  std::uint32_t address_;
  HostRecord record_;
  Programs programs_;
  Place place_;
  Step step_;
  Clock::time_point begin_;        // of the current command
  Clock::time_point notBefore_;    // for the next one
  Clock::time_point lastRequest_;  // by then the kernel has sent its last ARP request
  int probeStatus_ = 0;
  bool isSkipped_ = false;
  bool isProbedAgain_ = false;
  TroubleSet troubles_;
};

}  // namespace hostsweep
