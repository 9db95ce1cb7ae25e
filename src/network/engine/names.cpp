#include "network/engine/names.h"

#include <algorithm>
#include <system_error>

namespace hostsweep {
namespace {

std::optional<HostsFile> ReadHostsFile() {
  try {
    return HostsFile();
  } catch (const std::system_error&) {
    return {};
  }
}

}  // namespace

Names::Names() : file_(ReadHostsFile()) {}

void Names::LookUp(std::uint64_t key, std::uint32_t address) {
  std::optional<std::string> name;
  if (file_) name = file_->NameOf(address);
  if (name) {
    known_.push_back({key, std::move(name), NameSource::Hosts, {}});
  } else {
    servers_.Ask(key, address);
  }
}

void Names::Proceed(const std::vector<Watched>& ready, Clock::time_point now, bool isWaiting) {
  servers_.Proceed(ready, now);
  hosts_.Proceed(now, isWaiting);
}

std::vector<NameResult> Names::TakeLookUps() {
  std::vector<NameResult> results = std::exchange(known_, {});
  for (NameResult& result : servers_.TakeResults()) {
    if (!file_ && !result.Failure) result.Failure = Trouble::HostsFile;
    results.push_back(std::move(result));
  }
  return results;
}

void Names::Watch(std::vector<Watched>& descriptors) const {
  servers_.Watch(descriptors);
  hosts_.Watch(descriptors);
}

std::optional<Clock::time_point> Names::NextTime(Clock::time_point now, bool isWaiting) const {
  std::optional<Clock::time_point> next = servers_.NextTime(now);
  const std::optional<Clock::time_point> hosts = hosts_.NextTime(isWaiting);
  if (hosts) next = std::min(next.value_or(*hosts), *hosts);
  return next;
}

}  // namespace hostsweep
