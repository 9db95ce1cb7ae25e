// The exit status of the system's ping, which each system has defined for itself.
#pragma once

namespace hostsweep {

// True if the status says that ping could not send, and not merely that no answer came.
bool TellsSendFailure(int status);

}  // namespace hostsweep
