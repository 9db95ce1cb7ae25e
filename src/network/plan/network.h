// The networks to sweep, and the arguments that name them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hostsweep {

// Addresses that follow each other, from `First` to `Last`, both included.
struct Network {
  std::string Name;  // for messages: the argument, or 10.50.0.0/22 for a network of a device
  std::uint32_t First = 0;
  std::uint32_t Last = 0;
};

// The shortest prefix length of a network that is swept as a whole.
constexpr std::uint32_t ShortestPrefix = 16;

// Examples of arguments that name a network, for messages.
constexpr const char* NetworkExamples = "192.168.1, 192.168.1.0/24, 192.168.1.7 or 192.168.1.20-90";

// True if the text has only characters of these forms. Any other text can only be the name of a
// device.
bool IsNumeric(std::string_view argument);

// The network that the argument names, in one of the forms
//   192.168.1                     hosts 1 to 254
//   192.168.1.0/24                a prefix length from 16 to 32; host bits make no difference
//   192.168.1.7                   one address
//   192.168.1.20-192.168.1.90     a range of at most 65,536 addresses
//   192.168.1.20-90               the same: the last part is replaced
// Throws `UsageError` for any other argument.
Network ParseNetwork(const std::string& argument);

// The network in which the address lies, named like 10.50.0.0/22. `prefixLength` is from 0 to 32.
// Up to 30, the first address, which is the network's own, and the last, which is for broadcasts,
// are left out; smaller networks have neither (RFC 3021).
Network NetworkOf(std::uint32_t address, std::uint32_t prefixLength);

// The same networks, each without the addresses of the networks before it. Several parts of a
// network can remain, each with its name.
std::vector<Network> WithoutRepeats(const std::vector<Network>& networks);

// The number of addresses of the network.
std::uint64_t CountAddresses(const Network& network);

}  // namespace hostsweep
