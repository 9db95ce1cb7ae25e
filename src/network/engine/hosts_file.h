// The names that the administrator has given to addresses: hosts(5).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace hostsweep {

class HostsFile {
 public:
  // Reads the file. If it does not exist, there are no names. Throws `std::system_error` if it
  // cannot be read.
  explicit HostsFile(const std::string& path = "/etc/hosts");

  // The first name on the first line of the address, as in `NameText`; nothing if there is no name.
  [[nodiscard]] std::optional<std::string> NameOf(std::uint32_t address) const;

 private:
  std::unordered_map<std::uint32_t, std::string> names_;
};

}  // namespace hostsweep
