// The parts of probing that systems have defined for themselves: what the failures of a send mean,
// ICMP errors, and the form in which an echo reply arrives.
#pragma once

#include <optional>
#include <string_view>

#include "platform/network/probe_sockets.h"

namespace hostsweep {

// Has the socket keep ICMP errors for `ReadError`, where the system can.
void KeepErrors(int socket);

// The next ICMP error that has arrived; nothing if there is none.
std::optional<ProbeAnswer> ReadError(int socket);

// What a send that failed with this error number means; nothing if the error can belong to an
// earlier datagram, which a socket reports at its next call.
std::optional<SendResult> MeaningOf(int error);

// The ICMP message in the bytes that an ICMP socket has received.
std::string_view IcmpMessageIn(std::string_view received);

}  // namespace hostsweep
