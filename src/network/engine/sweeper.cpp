#include "network/engine/sweeper.h"

#include <algorithm>

#include "network/plan/address.h"

namespace hostsweep {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

// At most 5,000 probes a second, since they cause broadcasts, and switches and wireless networks
// drop bursts of broadcasts. After a pause a few probes may follow each other at once.
constexpr microseconds ProbeInterval(200);
constexpr milliseconds LongestBurst(10);
constexpr milliseconds BatchTime(5);

// If the kernel takes no probe, the time to the next try, and the time after which no more are
// made.
constexpr milliseconds RetryTime(20);
constexpr std::chrono::minutes LongestWait(2);

// The ARP cache is read at the longest interval, or, while news is expected, so often that reading
// takes about a hundredth of the time.
constexpr milliseconds ShortestLookInterval(10);
constexpr milliseconds LongestLookInterval(100);
constexpr int LookShare = 100;

// A gateway counts as there if a host beyond it has been heard within this time.
constexpr std::chrono::seconds HeardTime(10);

// The most addresses that are begun and not given out. A finding waits for those before it, and one
// address can take long.
constexpr std::size_t MostTargets = 4096;

}  // namespace

Sweeper::Sweeper(const std::vector<Network>& networks, std::size_t jobs, bool usesNames,
                 NetworkStack& stack)
    : jobs_(jobs), stack_(stack), walk_(networks) {
  if (usesNames) names_.emplace();
}

void Sweeper::Proceed(const std::vector<Watched>& ready, Clock::time_point now, bool mayBegin) {
  links_.clear();
  for (const ProbeAnswer& answer : probes_.Receive()) HandleAnswer(answer, now);
  if (nextLook_ && *nextLook_ <= now) Look(now);
  while (mayBegin && CanBegin()) BeginAddress();
  SendProbes(now);
  if (names_) ProceedWithNames(ready, now);
}

void Sweeper::ProceedWithNames(const std::vector<Watched>& ready, Clock::time_point now) {
  names_->Proceed(ready, now, SearchCount() > 0);
  for (NameResult& result : names_->TakeLookUps()) {
    const Key key = result.Key;
    At(key).SetLookUp(std::move(result));
    Settle(key);
  }
  AskHosts(now);
  for (NameResult& result : names_->TakeHostNames()) {
    const Key key = result.Key;
    At(key).SetHostName(std::move(result));
    Settle(key);
  }
}

// This machine, too, can be asked on the device that has the address.
void Sweeper::AskHosts(Clock::time_point now) {
  for (; !toAsk_.empty(); toAsk_.pop_front()) {
    const Key key = toAsk_.front();
    const Target& target = At(key);
    int device = target.Way().Leads == Route::Kind::Direct ? target.Way().Device : 0;
    if (target.Way().Leads == Route::Kind::Own) {
      const DeviceAddress* const owner = FindOwner(stack_.Devices(), target.Address());
      if (owner != nullptr) device = owner->Index;
    }
    names_->AskHost(key, target.Address(), device, now);
  }
}

// The number of addresses that wait for more than their hosts' own names.
std::size_t Sweeper::SearchCount() const {
  return inWork_.size() - toAsk_.size() - (names_ ? names_->AskedCount() : 0);
}

void Sweeper::Watch(std::vector<Watched>& descriptors) const {
  for (const Descriptor& socket : probes_.Sockets()) {
    descriptors.push_back({socket.Number(), true, false});
  }
  if (names_) names_->Watch(descriptors);
}

std::optional<Clock::time_point> Sweeper::NextTime(Clock::time_point now, bool mayBegin) const {
  // There can be room since `Proceed`, as findings have been given out.
  if (mayBegin && CanBegin()) return now;
  std::optional<Clock::time_point> next;
  if (names_) next = names_->NextTime(now, SearchCount() > 0);
  if (nextLook_) next = std::min(next.value_or(*nextLook_), *nextLook_);
  if (!toProbe_.empty()) {
    const Clock::time_point time = std::max(nextProbe_, now + BatchTime);
    next = std::min(next.value_or(time), time);
  }
  return next;
}

std::optional<Finding> Sweeper::Next() {
  while (!targets_.empty() && targets_.front().IsDone()) {
    const Target target = std::move(targets_.front());
    targets_.pop_front();
    ++firstKey_;
    if (!target.IsSkipped()) return target.Result();
  }
  return {};
}

// True if there is another address, and room for it.
bool Sweeper::CanBegin() const {
  return SearchCount() < jobs_ && targets_.size() < MostTargets && !walk_.IsAtEnd();
}

void Sweeper::BeginAddress() {
  const std::uint32_t address = *walk_.Next();
  const Key key = firstKey_ + targets_.size();
  const Route way = stack_.RouteTo(address);
  Target& target = targets_.emplace_back(address, way, LinkOf(way.Device), names_.has_value());
  inWork_.emplace(address, key);
  if (way.Leads == Route::Kind::Own) {
    const DeviceAddress* const owner = FindOwner(stack_.Devices(), address);
    if (owner != nullptr) target.SetHardwareAddress(owner->HardwareAddress);
  }
  if (target.WantsProbe()) toProbe_.push_back(key);
  if (names_ && !target.IsSkipped()) {
    names_->LookUp(key, address);
  } else {
    Settle(key);  // nothing may be left to find out
  }
}

void Sweeper::SendProbes(Clock::time_point now) {
  nextProbe_ = std::max(nextProbe_, now - LongestBurst);
  while (!toProbe_.empty() && nextProbe_ <= now) {
    const Key key = toProbe_.front();
    toProbe_.pop_front();
    // An answer to an earlier probe can have come in the meantime.
    if (key < firstKey_ || !At(key).WantsProbe()) continue;
    if (!SendProbe(key, now)) {
      toProbe_.push_front(key);
      nextProbe_ = now + RetryTime;
      return;
    }
    nextProbe_ += ProbeInterval;
  }
  if (toProbe_.empty()) fullSince_.reset();
}

// Returns false if the probe is to be sent later.
bool Sweeper::SendProbe(Key key, Clock::time_point now) {
  SearchEvent event;
  switch (probes_.Send(At(key).Address())) {
    case SendResult::Sent:
      event.What = SearchEvent::Kind::Sent;
      break;
    case SendResult::Forbidden:
      event = {SearchEvent::Kind::Failed, nullptr, Doubt::Forbidden, {}};
      break;
    case SendResult::Unreachable:
      event = {SearchEvent::Kind::Failed, nullptr, Doubt::Unreachable, {}};
      break;
    default:
      if (!fullSince_) fullSince_ = now;
      if (now - *fullSince_ < LongestWait) return false;
      event = {SearchEvent::Kind::Failed, nullptr, Doubt::TableFull, {}};
      break;
  }
  if (event.Reason != Doubt::TableFull) fullSince_.reset();
  if (event.What == SearchEvent::Kind::Sent) {
    const Clock::time_point look = now + ShortestLookInterval;
    nextLook_ = std::min(nextLook_.value_or(look), look);
  }
  HandleFor(key, event, now);
  return true;
}

void Sweeper::HandleAnswer(const ProbeAnswer& answer, Clock::time_point now) {
  const auto found = inWork_.find(answer.Target);
  if (found == inWork_.end()) return;
  const Target& target = At(found->second);
  if (answer.Sender == answer.Target) {
    const bool isBeyond = target.Way().Leads == Route::Kind::Beyond;
    if (isBeyond) heardBeyond_[{target.Way().Device, target.Way().Gateway}] = now;
    HandleFor(found->second, {SearchEvent::Kind::Answered, nullptr, {}, {}}, now);
  } else if (IsOwn(answer.Sender) && target.Way().Leads == Route::Kind::Beyond) {
    HandleFor(found->second, {SearchEvent::Kind::Failed, nullptr, Doubt::GatewaySilent, {}}, now);
  }
}

bool Sweeper::IsOwn(std::uint32_t address) const {
  constexpr std::uint32_t Loopback = 127;
  return address >> 24U == Loopback ||
         std::any_of(stack_.Devices().begin(), stack_.Devices().end(),
                     [&](const DeviceAddress& device) { return device.Address == address; });
}

void Sweeper::Look(Clock::time_point now) {
  const NeighbourTable table = stack_.Neighbours(now);
  const auto cost = std::chrono::duration_cast<milliseconds>((Clock::now() - now) * LookShare);
  nextLook_.reset();
  bool isNeeded = false;
  bool isUrgent = false;
  for (std::size_t i = 0; i < targets_.size(); ++i) {
    const Target& target = targets_[i];
    if (target.WantsLook()) LookFor(firstKey_ + i, table, now);
    isNeeded = isNeeded || target.WantsLook();
    isUrgent = isUrgent || (target.WantsLook() && target.Search().IsUrgent(now));
  }
  if (!isNeeded) return;
  nextLook_ = now + (isUrgent ? std::clamp(cost, ShortestLookInterval, LongestLookInterval)
                              : LongestLookInterval);
}

void Sweeper::LookFor(Key key, const NeighbourTable& table, Clock::time_point now) {
  const Target& target = At(key);
  const Route& way = target.Way();
  const Neighbour* entry = nullptr;
  if (way.Leads == Route::Kind::Direct) {
    entry = table.Find(way.Device, target.Address());
  } else if (way.Gateway != 0) {
    const auto heard = heardBeyond_.find({way.Device, way.Gateway});
    const bool isThere = heard != heardBeyond_.end() && now - heard->second < HeardTime;
    if (!isThere) entry = table.Find(way.Device, way.Gateway);
  }
  HandleFor(key, {SearchEvent::Kind::Seen, entry, {}, {}}, now);
}

void Sweeper::HandleFor(Key key, const SearchEvent& event, Clock::time_point now) {
  Target& target = At(key);
  target.Handle(event, now);
  if (target.NeedsConfirmation()) {
    const Route way = stack_.RouteTo(target.Address());
    target.Confirm(way, LinkOf(way.Device), now);
  }
  if (target.WantsProbe()) toProbe_.push_front(key);  // it may be in there twice
  Settle(key);
}

// Asks the host for its name if nobody else has a name for it, and counts the address if its sweep
// has ended.
void Sweeper::Settle(Key key) {
  Target& target = At(key);
  if (target.WantsHostName()) {
    target.BeginAskingHost();
    toAsk_.push_back(key);
  }
  if (!target.IsDone() || inWork_.erase(target.Address()) == 0) return;
  ++doneCount_;
  const TroubleSet troubles = target.Troubles();
  if (!troubles.IsEmpty()) troubles_.Add(troubles, target.Address(), target.WayInWords());
}

const LinkState& Sweeper::LinkOf(int device) {
  const auto known = links_.find(device);
  if (known != links_.end()) return known->second;
  return links_[device] = stack_.LinkOf(device);
}

}  // namespace hostsweep
