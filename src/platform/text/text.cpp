#include "platform/text/text.h"

#include "platform/text/characters.h"

namespace hostsweep {

bool operator==(const Text& left, const Text& right) {
  // No byte of a character outside ASCII is an ASCII letter, so comparing bytes is enough.
  return EqualsIgnoringCase(left.bytes_, right.bytes_);
}

}  // namespace hostsweep
