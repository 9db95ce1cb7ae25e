// What the system knows of a file: which it is, when it was changed, and whether it can be run.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <utility>

namespace hostsweep {

// Identifies the file or directory that a path leads to: device and serial number.
using FileId = std::pair<dev_t, ino_t>;

// The file or directory that the path leads to, with all links followed; nothing if there is none.
std::optional<FileId> IdentifyFile(const std::string& path);

// The day, in UTC, on which the content of this file was last changed, like 2026-06-26; empty if
// there is no such file. Throws `std::system_error`, whose text begins with the path, if the system
// does not tell.
std::string ModificationDay(const std::string& path);

// True if the path leads to a regular file that this process may execute.
bool IsProgram(const std::string& path);

}  // namespace hostsweep
