#include "network/report/report_writer.h"

#include <array>
#include <cstdio>
#include <utility>

namespace hostsweep {
namespace {

// The finding of a free address, which is always the same: there is neither a host nor a name.
Finding FreeAddress(std::uint32_t address) {
  Finding finding;
  finding.Address = address;
  finding.Host = Presence::Absent;
  return finding;
}

}  // namespace

ReportWriter::ReportWriter(const std::vector<Network>& networks, Selection reported,
                           std::unique_ptr<Formatter> formatter)
    : networks_(networks),
      isOfFree_(reported == Selection::Free),
      formatter_(std::move(formatter)) {
  if (!isOfFree_) pending_.Add(formatter_->Begin());
}

void ReportWriter::Add(const Finding& finding) {
  ++count_;
  const bool isUp = finding.Host == Presence::Up;
  if (isUp) ++upCount_;
  if (!isUp && finding.Name) ++namedCount_;
  if (!isOfFree_) {
    pending_.Add(formatter_->Add(finding));
  } else if (IsFree(finding)) {
    free_.push_back(finding.Address);
  }
}

void ReportWriter::End(bool isComplete) {
  if (!isOfFree_) {
    pending_.Add(formatter_->End(isComplete));
  } else if (isComplete) {
    pending_.Add(formatter_->Begin());
    toAdd_.emplace(networks_);
  }
}

std::string ReportWriter::Summary(std::chrono::milliseconds time) const {
  std::array<char, 32> seconds{};
  std::snprintf(seconds.data(), seconds.size(), "%.1f", static_cast<double>(time.count()) / 1000.0);
  return std::to_string(count_) + (count_ == 1 ? " address: " : " addresses: ") +
         std::to_string(upCount_) + " up, " + std::to_string(namedCount_) + " more with a name, " +
         seconds.data() + " s";
}

bool ReportWriter::AddFree() {
  constexpr std::size_t PartSize = 1U << 16U;
  while (toAdd_ && pending_.Size() < PartSize) AddNext();
  return pending_.Size() > 0;
}

void ReportWriter::AddNext() {
  const std::optional<std::uint32_t> address = toAdd_->Next();
  if (!address) {
    pending_.Add(formatter_->End(true));
    toAdd_.reset();
    return;
  }
  const bool isFree = freeCount_ < free_.size() && free_[freeCount_] == *address;
  if (isFree) ++freeCount_;
  pending_.Add(isFree ? formatter_->Add(FreeAddress(*address)) : formatter_->PassOver(*address));
}

}  // namespace hostsweep
