// Hardware addresses as the system gives them: some bytes, six for most devices.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// Groups of two lower-case hexadecimal digits joined by ":".
std::string FormatHardwareBytes(std::string_view bytes);

}  // namespace hostsweep
