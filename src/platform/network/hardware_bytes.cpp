#include "platform/network/hardware_bytes.h"

namespace hostsweep {

std::string FormatHardwareBytes(std::string_view bytes) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (!text.empty()) text += ':';
    text += Digits[value >> 4U];
    text += Digits[value & 0xFU];
  }
  return text;
}

}  // namespace hostsweep
