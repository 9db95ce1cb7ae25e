// What the process has to be like before anything else runs in it.
#pragma once

namespace hostsweep {

// Puts right what a caller may have left odd. To be called once, first of all:
// - Standard descriptors that are closed are opened on /dev/null, so that nothing else lands on
//   them. Writing to one of these still fails.
// - Other inherited descriptors stay in this process: children do not get them.
// - A write that has no reader, or finds the file too large, fails instead of killing the program.
// - No signal is blocked: an interrupt ends the program.
void MakeProcessReady();

}  // namespace hostsweep
