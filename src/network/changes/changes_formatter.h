// The report of a sweep that is compared with earlier sweeps.
#pragma once

#include <memory>

#include "network/changes/changes_file.h"
#include "network/report/format.h"

namespace hostsweep {

// Gives the findings to the file, which must outlive the formatter, and at the end the report of
// what has changed.
std::unique_ptr<Formatter> MakeChangesFormatter(ChangesFile& file);

}  // namespace hostsweep
