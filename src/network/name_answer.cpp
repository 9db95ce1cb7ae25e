#include "network/name_answer.h"

#include <cstdint>
#include <optional>

#include "platform/text/text_operations.h"

namespace hostsweep {
namespace {

// The answer that the line tells. A response code is that of RFC 1035, section 4.1.1.
std::optional<NameAnswer> AnswerIn(const Text& line) {
  if (Contains(line, "not found: 3(")) return NameAnswer::NoName;
  if (Contains(line, "not found: 5(")) return NameAnswer::Refused;
  if (Contains(line, "not found: ")) return NameAnswer::Failed;
  if (Contains(line, "has no PTR record")) return NameAnswer::NoName;
  if (Contains(line, "is an alias for")) return NameAnswer::NoName;  // and its target has none
  if (Contains(line, "no servers could be reached")) return NameAnswer::NoReply;
  if (Contains(line, "communications error")) return NameAnswer::NoReply;
  return {};
}

}  // namespace

NameAnswer ReadNameAnswer(const Text& output) {
  if (Contains(output, "domain name pointer")) return NameAnswer::Name;
  NameAnswer answer = NameAnswer::Failed;
  for (const Text& line : Split(output, "\n")) answer = AnswerIn(line).value_or(answer);
  return answer;
}

}  // namespace hostsweep
