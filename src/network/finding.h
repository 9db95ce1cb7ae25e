// The findings of a sweep: what is known about each address.
#pragma once

#include <cstdint>
#include <string>

#include "sweep/host_record.h"

namespace hostsweep {

// The texts have no line feeds.
struct Finding {
  std::uint32_t Address = 0;
  std::string Name;  // from the reverse lookup; the root domain's is empty
  bool HasName = false;
  std::string HardwareAddress;  // empty if there is none
  std::string Line;             // the report line of hostsweep, without its line end
  bool IsComplete = false;      // every look-up had an answer
  bool IsReserved = false;      // no host can have the address
};

// The addresses that a report has.
enum class Selection { All, Up, Free };

// The finding that the record of this address makes, with one space in place of each line feed.
Finding MakeFinding(std::uint32_t address, const HostRecord& record, bool isComplete);

// True if a host is there: it has a hardware address.
bool IsUp(const Finding& finding);

// True if a host could be given the address: it has neither a name nor a hardware address, every
// look-up had an answer, and it is not reserved.
bool IsFree(const Finding& finding);

bool IsSelected(const Finding& finding, Selection selection);

}  // namespace hostsweep
