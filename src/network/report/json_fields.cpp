#include "network/report/json_fields.h"

#include "network/plan/address.h"
#include "platform/text/json_text.h"

namespace hostsweep {
namespace {

std::string Truth(Presence host) {
  if (host == Presence::Unknown) return "null";
  return host == Presence::Up ? "true" : "false";
}

}  // namespace

std::string JsonStringOrNull(const std::string& text) {
  return text.empty() ? "null" : JsonString(text);
}

std::string JsonFields(const Finding& finding, Makers& makers) {
  return R"("address":")" + FormatAddress(finding.Address) + R"(","name":)" +
         (finding.Name ? JsonString(*finding.Name) : "null") + R"(,"hardware_address":)" +
         JsonStringOrNull(finding.HardwareAddress) + R"(,"maker":)" +
         JsonStringOrNull(makers.MakerOf(finding.HardwareAddress)) + R"(,"up":)" +
         Truth(finding.Host) + R"(,"name_source":)" +
         JsonStringOrNull(std::string(WordFor(finding.Source)));
}

}  // namespace hostsweep
