// What the process has inherited from its caller, made fit for the program's own work.
#pragma once

namespace hostsweep {

// Opens closed standard descriptors on /dev/null, so that no other file gets their numbers. Writing
// to them still fails.
void OpenStandardDescriptors();

// To be called once, before anything else:
// - `OpenStandardDescriptors`.
// - Child processes do not inherit any other descriptor that /dev/fd lists.
// - `IgnoreWriteSignals`.
// - No signal is blocked, and the ends of child processes are not ignored.
void PrepareProcess();

}  // namespace hostsweep
