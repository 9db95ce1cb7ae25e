#include "sweep/hardware_address.h"

#include <cstdint>
#include <vector>

#include "platform/text/text_operations.h"

namespace hostsweep {

Text ParseHardwareAddress(const Text& output) {
  constexpr std::int64_t GroupCount = 6;
  if (Contains(output, "no entry") || Contains(output, "(incomplete)")) return {};
  const std::int64_t at = InStr(0, output, " at ");  // 0 if it does not occur
  const Text rest = Right(output, Len(output) - at - 3);
  const Text token = Left(rest, InStr(0, rest, " ") - 1);
  return CountFields(token, ":") == GroupCount ? NormaliseHardwareAddress(token) : token;
}

Text NormaliseHardwareAddress(const Text& token) {
  std::vector<Text> groups = Split(token, ":");
  for (Text& group : groups) {
    if (Len(group) == 1) group = "0" + group;
    group = Uppercase(group);
  }
  return Join(groups, "-");
}

}  // namespace hostsweep
