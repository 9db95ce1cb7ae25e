// Linux: the kernel's message on a device and its link.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace hostsweep {

struct Link {
  int Index = 0;
  std::string Name;
  unsigned int Flags = 0;            // netdevice(7)
  std::string HardwareAddress;       // bytes
  std::uint32_t CarrierChanges = 0;  // how often the link has come and gone
};

// The body of a request for the device of this number; 0 in a request for all.
std::string LinkRequest(int index);

// The device that the body of an RTM_NEWLINK message describes; nothing if the body is too short.
std::optional<Link> ParseLink(std::string_view body);

// True if the device is set up and has a link.
bool IsUp(const Link& link);

// True if the kernel asks for hardware addresses on the device. A tunnel has no hardware address,
// so this is false for it, whatever its flags say.
bool UsesArp(const Link& link);

}  // namespace hostsweep
