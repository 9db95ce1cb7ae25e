// Waiting for everything that can happen while commands run.
#pragma once

#include <chrono>
#include <optional>

#include "platform/caught_signals.h"
#include "platform/command_set.h"

namespace hostsweep {

// Whether standard output is waited for until it can be written, or only watched.
enum class OutputState { Watched, Wanted };

// Waits until a signal arrives, a command writes something, standard output can probably be written
// if that is wanted, or the time, 0 or more, has passed; without a time, as long as it takes. Takes
// in what the commands have written. Returns false if the system reports that the reader of
// standard output is gone, which not every system does while it is only watched. Throws
// `std::system_error` if waiting or reading fails.
bool WaitForEvents(CommandSet& commands, const CaughtSignals& signals, OutputState output,
                   std::optional<std::chrono::milliseconds> time);

}  // namespace hostsweep
