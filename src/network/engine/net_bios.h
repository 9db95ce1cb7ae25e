// NetBIOS node status (RFC 1002, sections 4.2.17 and 4.2.18): the names that a host with Windows or
// Samba gives itself.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace hostsweep {

constexpr std::uint16_t NetBiosPort = 137;

// The request for the status of the host that receives it.
std::string NodeStatusRequest(std::uint16_t identifier);

// The name of the host in a response to the request with this identifier, as in `NameText`: the
// first unique name of type 00 (workstation) that is in use. Nothing if there is no such name, or
// if the bytes are not such a response.
std::optional<std::string> NodeNameIn(std::string_view message, std::uint16_t identifier);

}  // namespace hostsweep
