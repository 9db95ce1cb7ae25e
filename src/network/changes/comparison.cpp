#include "network/changes/comparison.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "network/changes/name_news.h"
#include "platform/text/printable.h"
#include "platform/text/text_operations.h"

namespace hostsweep {
namespace {

using State = SeenHost::State;

bool IsBefore(const SeenHost& left, const SeenHost& right) {
  return std::tie(left.Known.Address, left.Known.HardwareAddress) <
         std::tie(right.Known.Address, right.Known.HardwareAddress);
}

const std::string& CardOf(const SeenHost& host) { return host.Known.HardwareAddress; }

// The name as a line of the file can have it: `ParseSeenLine` refuses characters that cannot be
// printed, and a line of more than 64 KiB is not read as one.
std::string KeptName(const std::string& name) {
  constexpr std::int64_t LongestName = 8192;  // characters
  return Left(Printable(name), LongestName).Bytes();
}

bool HasCard(const SeenHost& host) { return !CardOf(host).empty(); }

// One comparison. It reads only what was known before the sweep, so that no finding depends on the
// findings before it, and writes what is known now.
class Judge {
 public:
  Judge(const std::vector<SeenHost>& before, const std::vector<Finding>& findings, SweepTime time,
        bool isComplete)
      : before_(before), findings_(findings), now_(before), time_(time), isComplete_(isComplete) {
    for (std::size_t i = 0; i < before.size(); ++i) {
      ofAddress_[before[i].Known.Address].push_back(i);
      if (HasCard(before[i])) ofCard_[CardOf(before[i])].push_back(i);
    }
    for (const Finding& finding : findings) {
      found_[finding.Address] = &finding;
      const bool isCard = finding.Host == Presence::Up && !finding.HardwareAddress.empty();
      if (isCard) upCards_.insert(finding.HardwareAddress);
    }
  }

  std::vector<Change> Changes() {
    for (const Finding& finding : findings_) {
      if (finding.IsReserved) continue;
      if (finding.Host == Presence::Up) {
        JudgeHost(finding);
      } else {
        JudgeSilence(finding);
      }
    }
    LeaveOthers();
    return std::move(changes_);
  }

  std::vector<SeenHost> Seen() {
    std::vector<SeenHost> seen;
    for (std::size_t i = 0; i < now_.size(); ++i) {
      if (!merged_.contains(i)) seen.push_back(std::move(now_[i]));
    }
    std::sort(seen.begin(), seen.end(), IsBefore);
    return seen;
  }

 private:
  using Index = std::size_t;  // into `before_` and `now_`

  // The hosts that a finding concerns.
  struct Place {
    std::optional<Index> Owner;  // the host that had the address
    std::optional<Index> Same;   // the host of the finding, if it had been at the address
  };

  [[nodiscard]] Place PlaceOf(const Finding& finding) const {
    Place place;
    const auto known = ofAddress_.find(finding.Address);
    if (known == ofAddress_.end()) return place;
    for (const Index i : known->second) {
      if (HasAddress(before_[i])) place.Owner = i;
      if (CardOf(before_[i]) == finding.HardwareAddress) place.Same = i;
    }
    return place;
  }

  // A host that is up.
  void JudgeHost(const Finding& finding) {
    Place place = PlaceOf(finding);
    const bool isOwner = place.Same && place.Same == place.Owner;
    const bool isHere = isOwner && IsHere(before_[*place.Same]);
    const bool wasCard = place.Owner && HasCard(before_[*place.Owner]);
    // A card is known here, and what was heard now does not tell whether it is the same card.
    if (wasCard && finding.HardwareAddress.empty()) return Hear(now_[*place.Owner]);
    const std::optional<Index> origin = isHere ? std::nullopt : OriginOf(finding, place);
    // Nothing tells the host without a card that was here from this host.
    if (!origin && !place.Same && !wasCard) place.Same = place.Owner;
    Change change;
    const NameNews news = Keep(finding, place, origin, change.Host);
    if (origin) {
      change.What = Change::Kind::Moved;
      change.FromAddress = before_[*origin].Known.Address;
    } else if (!place.Same) {
      change.What = wasCard ? Change::Kind::Other : Change::Kind::New;
    } else if (IsBack(before_[*place.Same], wasCard)) {
      change.What = Change::Kind::Back;
      change.LastSeen = before_[*place.Same].LastSeen;
    } else if (place.Same == place.Owner && news == NameNews::Changed) {
      change.What = Change::Kind::Renamed;
      change.FromName = before_[*place.Same].Known.Name;
    } else {
      return;
    }
    if (wasCard && !isOwner) change.WasCard = CardOf(before_[*place.Owner]);
    changes_.push_back(std::move(change));
  }

  // True for a host that was called gone, or whose address had been taken by a card that has left
  // it since. While that card has the address, the two take turns.
  static bool IsBack(const SeenHost& host, bool isTaken) {
    return host.Whereabouts == State::Gone || (host.Whereabouts == State::Replaced && !isTaken);
  }

  // The address was heard, without a card. A card that is known to be elsewhere is not meant.
  void Hear(SeenHost& owner) const {
    if (!IsHere(owner)) return;
    owner.Known.Host = Presence::Up;
    owner.LastSeen = time_;
    owner.Whereabouts = State::Here;
  }

  // Nothing was heard at the address, which may not mean that nothing is there.
  void JudgeSilence(const Finding& finding) {
    const std::optional<Index> owner = PlaceOf(finding).Owner;
    if (!owner) return;
    SeenHost& host = now_[*owner];
    host.Known.Host = finding.Host;
    if (finding.Host != Presence::Absent || !isComplete_ || !HasCard(host)) return;
    if (host.Whereabouts == State::Here) {
      host.Whereabouts = State::Missed;
    } else if (host.Whereabouts == State::Away || upCards_.contains(CardOf(host))) {
      host.Whereabouts = State::Left;
    } else {
      host.Whereabouts = State::Gone;
      Change change;
      change.What = Change::Kind::Gone;
      change.Host = host;
      change.LastSeen = host.LastSeen;
      changes_.push_back(std::move(change));
    }
  }

  // Where the card of the finding, which did not have this address, has come from: another address
  // at which it was last seen, which has been swept, and which it certainly no longer has. Of
  // several, an address from which no card has come yet is preferred, and then the latest.
  std::optional<Index> OriginOf(const Finding& finding, const Place& place) {
    const auto known = ofCard_.find(finding.HardwareAddress);
    if (known == ofCard_.end()) return {};
    const auto [entry, isFirst] = originsOfCard_.try_emplace(known->first);
    Origins& origins = entry->second;
    if (isFirst) origins = OriginsIn(known->second);
    const bool wasLost = place.Same && IsLost(before_[*place.Same]);
    if (origins.Latest.empty() || (origins.AreLost && wasLost)) return {};
    const bool areUsed = origins.Used == origins.Latest.size();
    const Index origin = origins.Latest[areUsed ? 0 : origins.Used++];
    origins_.insert(origin);
    return origin;
  }

  // The hosts, all of one card, whose addresses the card can have come from.
  struct Origins {
    std::vector<Index> Latest;  // the one seen last comes first
    std::size_t Used = 0;       // of these, from the first on
    bool AreLost = false;
  };

  // `known`: the hosts of one card.
  [[nodiscard]] Origins OriginsIn(const std::vector<Index>& known) const {
    const auto isHere = [&](Index i) { return IsHere(before_[i]); };
    Origins origins;
    origins.AreLost = std::none_of(known.begin(), known.end(), isHere);
    for (const Index i : known) {
      const bool isLast = origins.AreLost ? IsLost(before_[i]) : isHere(i);
      if (isLast && IsAway(before_[i])) origins.Latest.push_back(i);
    }
    const auto isLater = [&](Index i, Index j) {
      return before_[i].LastSeen > before_[j].LastSeen;
    };
    std::stable_sort(origins.Latest.begin(), origins.Latest.end(), isLater);
    return origins;
  }

  // True if the host was not seen elsewhere after it had been here.
  static bool IsLost(const SeenHost& host) {
    return host.Whereabouts == State::Gone || host.Whereabouts == State::Replaced;
  }

  // True if the sweep has found for certain that the card is not at that address.
  [[nodiscard]] bool IsAway(const SeenHost& host) const {
    const auto found = found_.find(host.Known.Address);
    if (found == found_.end() || found->second->IsReserved) return false;
    const Finding& finding = *found->second;
    if (finding.Host != Presence::Up) return finding.Host == Presence::Absent;
    return !finding.HardwareAddress.empty() && finding.HardwareAddress != CardOf(host);
  }

  // Records the host that is up, and copies it to `kept`. Returns what is new about its name.
  NameNews Keep(const Finding& finding, const Place& place, std::optional<Index> origin,
                SeenHost& kept) {
    if (place.Owner && place.Owner != place.Same) Replace(*place.Owner);
    const bool isKnown = place.Same.has_value();
    if (!isKnown) {
      SeenHost added;
      added.FirstSeen = origin ? before_[*origin].FirstSeen : time_;
      now_.push_back(added);
    }
    SeenHost& host = now_[isKnown ? *place.Same : now_.size() - 1];
    if (origin && IsOwnName(before_[*origin].Known)) TakeName(host.Known, before_[*origin].Known);
    const NameNews news = CompareNames(host.Known, finding);
    if (news != NameNews::None) TakeName(host.Known, finding);
    host.Known.Address = finding.Address;
    host.Known.HardwareAddress = finding.HardwareAddress;
    host.Known.Host = Presence::Up;
    host.LastSeen = time_;
    host.Whereabouts = State::Here;
    kept = host;
    return news;
  }

  // Another host has the address of this host, or this host without a card is found to have a card.
  void Replace(Index owner) {
    if (!HasCard(before_[owner])) merged_.insert(owner);
    now_[owner].Whereabouts = State::Replaced;
    now_[owner].Known.Host = Presence::Absent;
  }

  // A card that is up has left the address that it has moved from, and the addresses where another
  // host has replaced it; it is away from addresses that this sweep leaves out.
  void LeaveOthers() {
    for (Index i = 0; i < before_.size(); ++i) {
      SeenHost& host = now_[i];
      if (!HasCard(host) || !upCards_.contains(CardOf(host))) continue;
      const bool isSwept = found_.contains(host.Known.Address);
      if (IsHere(host) && !isSwept) host.Whereabouts = State::Away;
      if (!origins_.contains(i) && host.Whereabouts != State::Replaced) continue;
      host.Whereabouts = State::Left;
      host.Known.Host = Presence::Absent;
    }
  }

  const std::vector<SeenHost>& before_;
  const std::vector<Finding>& findings_;
  std::vector<SeenHost> now_;  // the hosts of `before_`, and then new hosts
  SweepTime time_;
  bool isComplete_;
  std::unordered_map<std::uint32_t, std::vector<Index>> ofAddress_;
  std::unordered_map<std::string_view, std::vector<Index>> ofCard_;
  std::unordered_map<std::uint32_t, const Finding*> found_;
  std::unordered_set<std::string_view> upCards_;
  std::unordered_map<std::string_view, Origins> originsOfCard_;
  std::unordered_set<Index> origins_;  // hosts whose cards have moved away
  std::unordered_set<Index> merged_;   // hosts that are now part of another host of the address
  std::vector<Change> changes_;
};

}  // namespace

Comparison::Comparison(std::vector<SeenHost> seen, SweepTime time)
    : seen_(std::move(seen)), time_(time) {
  std::sort(seen_.begin(), seen_.end(), IsBefore);
}

void Comparison::Add(const Finding& finding) {
  const bool isUp = finding.Host == Presence::Up;
  SeenHost first;
  first.Known.Address = finding.Address;
  const auto known = std::lower_bound(seen_.begin(), seen_.end(), first, IsBefore);
  const bool isKnown = known != seen_.end() && known->Known.Address == finding.Address;
  if (!isUp && !isKnown) return;
  if (isUp) ++upCount_;
  findings_.push_back(finding);
  Finding& added = findings_.back();
  if (added.Name) added.Name = KeptName(*added.Name);
}

void Comparison::End(bool isComplete) {
  Judge judge(seen_, findings_, time_, isComplete);
  changes_ = judge.Changes();
  seen_ = judge.Seen();
}

}  // namespace hostsweep
