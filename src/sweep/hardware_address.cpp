#include "sweep/hardware_address.h"

#include <cstdint>
#include <vector>

#include "platform/text_operations.h"

namespace hostsweep {
namespace {

bool Holds(const Text& output, const Text& words) { return InStr(0, output, words) > 0; }

}  // namespace

Text LookupHardwareAddress(Shell& shell, const Text& address) {
  shell.Execute("Arp " + address);
  return ParseHardwareAddress(shell.Result());
}

Text ParseHardwareAddress(const Text& output) {
  constexpr std::int64_t GroupCount = 6;
  if (Holds(output, "no entry") || Holds(output, "(incomplete)")) return {};
  const std::int64_t at = InStr(0, output, " at ");  // 0 without one: three characters are skipped
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
