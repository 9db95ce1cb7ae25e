#include "network/changes/name_news.h"

namespace hostsweep {
namespace {

// The place of the name's source in the order in which sources are asked; after all sources if
// there is no name.
int RankOf(const Finding& finding) {
  constexpr int AfterAll = static_cast<int>(NameSource::NetBios) + 1;
  return finding.Name ? static_cast<int>(finding.Source) : AfterAll;
}

// True if the earlier name is overruled now, or would have been found again if it still held.
bool WouldBeTold(const Finding& before, const Finding& now) {
  const bool isOverruled = now.Name && RankOf(now) <= RankOf(before);
  return isOverruled || (now.IsLookedUp && !IsOwnName(before));
}

}  // namespace

bool IsOwnName(const Finding& finding) {
  return finding.Source == NameSource::Mdns || finding.Source == NameSource::NetBios;
}

NameNews CompareNames(const Finding& before, const Finding& now) {
  if (!WouldBeTold(before, now)) return NameNews::None;
  if (before.Name == now.Name) return now.IsLookedUp ? NameNews::Learned : NameNews::None;
  const bool wasAskable = before.IsLookedUp || RankOf(now) >= RankOf(before);
  return wasAskable ? NameNews::Changed : NameNews::Learned;
}

void TakeName(Finding& to, const Finding& from) {
  to.Name = from.Name;
  to.Source = from.Source;
  to.IsLookedUp = from.IsLookedUp;
}

}  // namespace hostsweep
