#include "network/report.h"

#include <array>
#include <cstdio>

#include "network/address.h"

namespace hostsweep {

Report::Report(const std::vector<Network>& networks, Format format, const Layout& layout)
    : networks_(networks),
      isOfFree_(layout.Report == Selection::Free),
      formatter_(MakeFormatter(format, layout, makers_)) {
  if (!isOfFree_) output_.Add(formatter_->Begin());
}

void Report::Add(const Finding& finding) {
  ++count_;
  if (IsUp(finding)) ++upCount_;
  if (!IsUp(finding) && finding.HasName) ++namedCount_;
  if (!isOfFree_) {
    output_.Add(formatter_->Add(finding));
  } else if (IsFree(finding)) {
    free_.push_back(finding.Address);
  }
}

void Report::End(bool isComplete) {
  if (!isOfFree_) {
    output_.Add(formatter_->End());
  } else if (isComplete) {
    output_.Add(formatter_->Begin());
    toAdd_.emplace(networks_);
  }
}

std::string Report::Summary(std::chrono::milliseconds time) const {
  std::array<char, 32> seconds{};
  std::snprintf(seconds.data(), seconds.size(), "%.1f", static_cast<double>(time.count()) / 1000.0);
  return std::to_string(count_) + (count_ == 1 ? " address: " : " addresses: ") +
         std::to_string(upCount_) + " up, " + std::to_string(namedCount_) + " more with a name, " +
         seconds.data() + " s";
}

bool Report::AddFree() {
  constexpr std::size_t PartSize = 1U << 16U;
  while (toAdd_ && output_.Size() < PartSize) AddNext();
  return output_.Size() > 0;
}

// The other addresses are given to the formatter as ones that are not free: a map needs them.
void Report::AddNext() {
  const std::optional<std::uint32_t> address = toAdd_->Next();
  if (!address) {
    output_.Add(formatter_->End());
    toAdd_.reset();
    return;
  }
  const std::string text = FormatAddress(*address);
  const bool isFree = freeCount_ < free_.size() && free_[freeCount_] == *address;
  if (isFree) ++freeCount_;
  output_.Add(formatter_->Add(MakeFinding(*address, {text, text, ""}, isFree)));
}

}  // namespace hostsweep
