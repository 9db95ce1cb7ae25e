#include "network/engine/target.h"

#include <utility>

#include "network/plan/address.h"
#include "platform/network/hardware_bytes.h"
#include "platform/text/text.h"
#include "sweep/hardware_address.h"

namespace hostsweep {
namespace {

Hearing HearingOf(const Route& way) {
  return way.Leads == Route::Kind::Direct ? Hearing::Arp : Hearing::Answer;
}

bool LeadsToHosts(const Route& way) {
  return way.Leads == Route::Kind::Direct || way.Leads == Route::Kind::Beyond;
}

// True if the kernel could not ask by ARP. Without ARP, a missing link is only one more reason for
// silence.
bool IsDown(const Route& way, const LinkState& link) {
  return way.Leads == Route::Kind::Direct && !link.IsUp;
}

Trouble TroubleOf(Doubt doubt) {
  switch (doubt) {
    case Doubt::NotAsked:
      return Trouble::NotAsked;
    case Doubt::TooLong:
      return Trouble::TooLong;
    case Doubt::GatewaySilent:
      return Trouble::GatewaySilent;
    case Doubt::Forbidden:
      return Trouble::Forbidden;
    case Doubt::TableFull:
      return Trouble::TableFull;
    case Doubt::Unreachable:
      return Trouble::NotSent;
    default:
      return Trouble::Changed;
  }
}

// The form in which hostsweep prints it: its own for six bytes, and that of arp(8) for others.
std::string FormatHardwareAddress(const std::string& bytes) {
  constexpr std::size_t UsualSize = 6;
  const std::string groups = FormatHardwareBytes(bytes);
  return bytes.size() == UsualSize ? NormaliseHardwareAddress(groups).Bytes() : groups;
}

}  // namespace

Target::Target(std::uint32_t address, const Route& way, const LinkState& link, bool wantsName)
    : address_(address),
      way_(way),
      changes_(link.Changes),
      search_(HearingOf(way)),
      wantsName_(wantsName) {
  const bool isDown = IsDown(way, link);
  isSkipped_ = isDown || way.Leads == Route::Kind::None;
  if (isSkipped_) troubles_.Add(isDown ? Trouble::LinkDown : Trouble::NoRoute);
}

bool Target::WantsProbe() const {
  return !isSkipped_ && LeadsToHosts(way_) && search_.Current() == HostSearch::State::ToProbe;
}

bool Target::WantsLook() const {
  return !isSkipped_ && LeadsToHosts(way_) && !WantsProbe() && !search_.IsDone();
}

bool Target::WantsHostName() const {
  return wantsName_ && isLookedUp_ && !name_ && asking_ == Asking::NotAsked && IsUp();
}

bool Target::IsDone() const {
  if (isSkipped_) return true;
  return IsSearched() && (isLookedUp_ || !wantsName_) && asking_ != Asking::Asked &&
         !WantsHostName();
}

bool Target::IsUp() const {
  return way_.Leads == Route::Kind::Own || search_.Current() == HostSearch::State::Up;
}

bool Target::IsSearched() const {
  return !LeadsToHosts(way_) || (search_.IsDone() && !NeedsConfirmation());
}

void Target::Handle(const SearchEvent& event, Clock::time_point now) {
  search_.Handle(event, now);
  const bool isOfHost = event.Entry != nullptr && way_.Leads == Route::Kind::Direct;
  // A host is up, or an entry of the administrator's leaves it unknown, without a `Doubt`.
  const bool isSure = search_.IsDone() && search_.Reason() == Doubt::None;
  if (isOfHost && isSure) hardwareAddress_ = event.Entry->HardwareAddress;
}

// A host that was heard is up whatever has changed; silence can have another reason.
bool Target::NeedsConfirmation() const {
  return LeadsToHosts(way_) && search_.IsDone() && !isConfirmed_ &&
         search_.Current() != HostSearch::State::Up;
}

void Target::Confirm(const Route& way, const LinkState& link, Clock::time_point now) {
  const bool isLost = !LeadsToHosts(way) || IsDown(way, link);
  if (way == way_ && link.Changes == changes_ && !isLost) {
    isConfirmed_ = true;
    return;
  }
  // A second change ends the search: a way that is lost makes two of this one.
  if (isLost) search_.Handle({SearchEvent::Kind::Changed, nullptr, {}, HearingOf(way)}, now);
  search_.Handle({SearchEvent::Kind::Changed, nullptr, {}, HearingOf(way)}, now);
  isConfirmed_ = search_.IsDone();
  hardwareAddress_.clear();
  if (isLost) return;
  way_ = way;
  changes_ = link.Changes;
}

void Target::SetLookUp(NameResult result) {
  isLookedUp_ = true;
  hasLookUpFailed_ = result.Failure.has_value();
  TakeName(std::move(result));
}

void Target::SetHostName(NameResult result) {
  asking_ = Asking::Over;
  TakeName(std::move(result));
}

// A name that is the address itself counts as none, as in hostsweep.
void Target::TakeName(NameResult result) {
  if (result.Failure) troubles_.Add(*result.Failure);
  if (!result.Name || Text(*result.Name) == FormatAddress(address_)) return;
  name_ = std::move(result.Name);
  source_ = result.Source;
}

Finding Target::Result() const {
  Finding finding;
  finding.Address = address_;
  finding.Name = name_;
  finding.Source = source_;
  finding.IsLookedUp = isLookedUp_ && !hasLookUpFailed_;
  finding.HardwareAddress = FormatHardwareAddress(hardwareAddress_);
  finding.HasTrouble = !Troubles().IsEmpty();
  finding.IsReserved = way_.Leads == Route::Kind::Reserved;
  if (IsUp()) {
    finding.Host = Presence::Up;
  } else if (finding.IsReserved || search_.Current() == HostSearch::State::Absent) {
    finding.Host = Presence::Absent;
  }
  return finding;
}

TroubleSet Target::Troubles() const {
  TroubleSet troubles = troubles_;
  const bool isInDoubt = search_.Current() == HostSearch::State::Unknown;
  if (isInDoubt && search_.Reason() != Doubt::None) troubles.Add(TroubleOf(search_.Reason()));
  return troubles;
}

std::string Target::WayInWords() const {
  if (way_.Gateway != 0) return "the gateway " + FormatAddress(way_.Gateway);
  return DeviceName(way_.Device);
}

}  // namespace hostsweep
