// What must hold for any bytes that a tool may print, for Clang's libFuzzer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/text_operations.h"
#include "sweep/hardware_address.h"
#include "sweep/host_name.h"

namespace hostsweep {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

void CheckText(const Text& text, const Text& part, std::int64_t count) {
  const std::int64_t length = Len(text);
  const std::int64_t clamped = std::clamp<std::int64_t>(count, 0, length);
  Require(Len(Left(text, count)) == clamped && Len(Right(text, count)) == clamped);
  Require((Left(text, count) + Mid(text, clamped + 1)).Bytes() == text.Bytes());

  const std::int64_t position = InStr(0, text, part);
  Require(position == 0 || Left(Mid(text, position), Len(part)) == part);
  const std::vector<Text> fields = Split(text, part);
  Require(static_cast<std::int64_t>(fields.size()) == CountFields(text, part));
  Require(Join(fields, part) == text);

  Require(Uppercase(text) == text && Len(Uppercase(text)) == length);
  Val(text);
}

void CheckParsers(const Text& output) {
  const std::string name = ParseHostName(output, "10.0.0.7").Bytes();
  Require(name == "10.0.0.7" || output.Bytes().find(name) != std::string::npos);

  const std::string address = ParseHardwareAddress(output).Bytes();
  const bool isAsPrinted = output.Bytes().find(address) != std::string::npos;
  Require(isAsPrinted || address.find(':') == std::string::npos);

  const std::string normalised = NormaliseHardwareAddress(output).Bytes();
  Require(normalised.find_first_of(":abcdefghijklmnopqrstuvwxyz") == std::string::npos);
}

}  // namespace
}  // namespace hostsweep

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using hostsweep::Text;
  if (size < 2) return 0;
  const std::string bytes(data + 2, data + size);
  const std::size_t partSize = std::min<std::size_t>(data[0] % 4, bytes.size());
  const Text text = bytes.substr(partSize);
  hostsweep::CheckText(text, bytes.substr(0, partSize), static_cast<std::int8_t>(data[1]));
  hostsweep::CheckParsers(text);
  return 0;
}
