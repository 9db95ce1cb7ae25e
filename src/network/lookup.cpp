#include "network/lookup.h"

#include <algorithm>
#include <csignal>

#include "network/address.h"
#include "network/name_answer.h"
#include "platform/exit_status.h"
#include "platform/ping_status.h"
#include "platform/text/text_operations.h"
#include "sweep/hardware_address.h"
#include "sweep/host_name.h"
#include "sweep/probe.h"

namespace hostsweep {
namespace {

bool HasRun(const CommandSet::Result& result) {
  return !result.WasKilled && result.Status < ExitCannotRun;
}

Trouble TroubleOf(NameAnswer answer) {
  switch (answer) {
    case NameAnswer::NoReply:
      return Trouble::NoServerReply;
    case NameAnswer::Refused:
      return Trouble::ServerRefused;
    default:
      return Trouble::ServerFailed;
  }
}

}  // namespace

Lookup::Lookup(std::uint32_t address, Programs programs, Place place)
    : address_(address),
      programs_(programs),
      place_(place),
      step_(programs.HasPing   ? Step::Probe
            : programs.HasHost ? Step::Name
                               : Step::HardwareAddress) {
  record_.Address = FormatAddress(address);
  record_.Name = record_.Address;
  if (!programs.HasPing || !programs.HasHost) troubles_.Add(Trouble::NotAsked);
}

Text Lookup::Command() const {
  switch (step_) {
    case Step::Probe:
      return ProbeCommand(record_.Address);
    case Step::Name:
      return HostNameCommand(record_.Address);
    default:
      return HardwareAddressCommand(record_.Address);
  }
}

Clock::time_point Lookup::CanWaitUntil() const {
  const bool isAnswered = probeStatus_ == 0;
  return step_ == Step::HardwareAddress && !isAnswered ? lastRequest_ : notBefore_;
}

void Lookup::Take(const CommandSet::Result& result, Clock::time_point now) {
  if (step_ == Step::Probe) {
    TakeProbe(result, now);
  } else if (step_ == Step::Name) {
    TakeName(result);
  } else {
    TakeHardwareAddress(result);
  }
}

void Lookup::Skip(Trouble reason) {
  troubles_.Add(reason);
  isSkipped_ = true;
  step_ = Step::Done;
}

Finding Lookup::Result() const {
  Finding finding = MakeFinding(address_, record_, troubles_.IsEmpty());
  finding.IsReserved = place_ == Place::Reserved;
  return finding;
}

// The kernel asks three times, a second apart (arp(7)), beginning some time after ping has been
// started and before it has ended. A timer of the kernel can be an eighth late. A ping that ends
// without an answer before its time is over has been told that the kernel has given up.
void Lookup::TakeProbe(const CommandSet::Result& result, Clock::time_point now) {
  using std::chrono::milliseconds;
  probeStatus_ = result.Status;
  // The tool that limits the time of a ping without an answer kills it.
  const bool isTimedOut = !result.WasKilled && result.Status == ExitSignal + SIGKILL;
  if (!HasRun(result) && !isTimedOut) troubles_.Add(Trouble::CommandFailed);
  lastRequest_ = isTimedOut ? std::max(begin_ + milliseconds(2400), now + milliseconds(1400)) : now;
  notBefore_ = {};
  step_ = programs_.HasHost && !isProbedAgain_ ? Step::Name : Step::HardwareAddress;
}

void Lookup::TakeName(const CommandSet::Result& result) {
  const Text output = result.Output;
  record_.Name = ParseHostName(output, record_.Address);
  step_ = Step::HardwareAddress;
  if (!HasRun(result) || result.IsCut || result.Output.empty()) {
    troubles_.Add(Trouble::CommandFailed);
    return;
  }
  const NameAnswer answer = ReadNameAnswer(output);
  const bool isAnswered = answer == NameAnswer::Name || answer == NameAnswer::NoName;
  if (!isAnswered) troubles_.Add(TroubleOf(answer));
}

void Lookup::TakeHardwareAddress(const CommandSet::Result& result) {
  const Text output = result.Output;
  record_.HardwareAddress = ParseHardwareAddress(output);
  const bool isIncomplete = Contains(output, "(incomplete)");
  const bool isAbsent = Contains(output, "no entry");
  if (isIncomplete && begin_ < lastRequest_) {
    notBefore_ = lastRequest_;
    return;
  }
  const bool isUnasked = isAbsent && place_ == Place::Neighbour && programs_.HasPing;
  if (isUnasked && !isProbedAgain_) {
    isProbedAgain_ = true;
    step_ = Step::Probe;
    return;
  }
  step_ = Step::Done;
  if (!HasRun(result) || (!isIncomplete && !isAbsent && !Contains(output, " at "))) {
    troubles_.Add(Trouble::CommandFailed);
  }
  const bool isUnsent = record_.HardwareAddress == "" && TellsSendFailure(probeStatus_);
  if (isUnasked || (isUnsent && place_ == Place::Neighbour)) troubles_.Add(Trouble::ProbeFailed);
}

}  // namespace hostsweep
