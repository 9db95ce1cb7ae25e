// The report of a sweep on standard output, and its summary.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "network/engine/address_walk.h"
#include "network/engine/finding.h"
#include "network/plan/network.h"
#include "network/report/format.h"
#include "platform/output_queue.h"

namespace hostsweep {

// Turns the findings of a sweep, in their order, into the text for standard output.
class ReportWriter {
 public:
  // A report on all addresses of these networks, which must outlive it, in the formatter's form.
  ReportWriter(const std::vector<Network>& networks, Selection reported,
               std::unique_ptr<Formatter> formatter);

  void Add(const Finding& finding);

  // Ends the report. A report of free addresses begins only now, and is empty unless every address
  // was swept completely: until then no address is known to be free.
  void End(bool isComplete);

  // Adds the next part of the free addresses to an empty `Pending`. Returns false if no part is
  // left.
  bool AddFree();

  // The text that standard output has yet to take.
  OutputQueue& Pending() { return pending_; }
  [[nodiscard]] const OutputQueue& Pending() const { return pending_; }

  // A line on how many addresses were found to be what, in that time.
  [[nodiscard]] std::string Summary(std::chrono::milliseconds time) const;

 private:
  void AddNext();

  const std::vector<Network>& networks_;
  bool isOfFree_;
  std::unique_ptr<Formatter> formatter_;
  OutputQueue pending_;
  std::vector<std::uint32_t> free_;
  std::size_t freeCount_ = 0;         // free addresses already added
  std::optional<AddressWalk> toAdd_;  // the addresses swept, in order
  std::uint64_t count_ = 0;
  std::uint64_t upCount_ = 0;
  std::uint64_t namedCount_ = 0;
};

}  // namespace hostsweep
