#include "network/changes/changes_file.h"

#include <chrono>
#include <cstdint>
#include <set>
#include <stdexcept>
#include <utility>

#include "network/changes/change_lines.h"
#include "network/changes/seen_line.h"
#include "network/plan/usage_error.h"
#include "platform/text/printable.h"

namespace hostsweep {
namespace {

SweepTime Now() {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

// The hosts of a file, as a comparison needs them.
class Hosts {
 public:
  // Throws `std::invalid_argument` if the file cannot have the host beside the hosts before it.
  void Add(SeenHost host) {
    const Finding& known = host.Known;
    if (!places_.emplace(known.Address, known.HardwareAddress).second) {
      throw std::invalid_argument("has the address and the hardware address of an earlier line");
    }
    if (HasAddress(host) && !taken_.insert(known.Address).second) {
      throw std::invalid_argument("has the address of another host");
    }
    hosts_.push_back(std::move(host));
  }

  std::vector<SeenHost> Take() { return std::move(hosts_); }

 private:
  std::set<std::pair<std::uint32_t, std::string>> places_;
  std::set<std::uint32_t> taken_;
  std::vector<SeenHost> hosts_;
};

}  // namespace

ChangesFile::ChangesFile(const Options& options)
    : path_(options.ChangesFile.value_or("")),
      isInJson_(options.ReportFormat == Format::Json),
      usesNames_(options.UsesNames),
      file_(path_),
      comparison_(ReadHosts(), Now()) {
  makers_.Source();  // reads the list: if it cannot be read, no sweep is to be lost
}

std::vector<SeenHost> ChangesFile::ReadHosts() {
  if (!file_.IsRegular()) throw UsageError(path_, "not a regular file");
  Hosts hosts;
  int number = 0;
  for (std::string line; file_.ReadLine(line);) {
    ++number;
    if (line.empty()) continue;
    try {
      hosts.Add(ParseSeenLine(line));
    } catch (const std::invalid_argument& error) {
      throw UsageError(
          path_, "not a file of --changes: line " + std::to_string(number) + ' ' + error.what());
    }
  }
  isBegun_ = number == 0;
  return hosts.Take();
}

void ChangesFile::Add(Finding finding) {
  finding.IsLookedUp = finding.IsLookedUp && usesNames_;
  comparison_.Add(finding);
}

std::string ChangesFile::End(bool isComplete) {
  comparison_.End(isComplete);
  if (isBegun_) return {};
  return isInJson_ ? FormatChangesInJson(comparison_.Changes(), makers_)
                   : FormatChanges(comparison_.Changes(), makers_);
}

void ChangesFile::Keep() {
  std::string content;
  for (const SeenHost& host : comparison_.Seen()) content += FormatSeenLine(host, makers_);
  // A file without hosts is not empty: an empty one would be begun again.
  file_.Replace(content.empty() ? "\n" : content);
}

std::string ChangesFile::BeginningInWords() const {
  if (!isBegun_) return {};
  const std::size_t count = comparison_.UpCount();
  return Printable(path_) + ": begun with " + std::to_string(count) +
         (count == 1 ? " host" : " hosts");
}

}  // namespace hostsweep
