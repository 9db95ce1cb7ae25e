#include "sweep/host_name.h"

#include <cstdint>

#include "platform/text/text_operations.h"

namespace hostsweep {
namespace {

Text WithoutFinalDot(const Text& name) {
  return Right(name, 1) == "." ? Left(name, Len(name) - 1) : name;
}

}  // namespace

Text ParseHostName(const Text& output, const Text& address) {
  const Text marker = "domain name pointer";
  const std::int64_t position = InStr(0, output, marker);
  const bool isFound = position > 0;
  return WithoutFinalDot(isFound ? Trim(Mid(output, position + Len(marker) + 1)) : address);
}

}  // namespace hostsweep
