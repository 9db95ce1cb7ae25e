#include "platform/text.h"

#include "platform/characters.h"

namespace hostsweep {

bool operator==(const Text& left, const Text& right) {
  // No byte of a character outside ASCII is an ASCII letter, so comparing bytes is enough.
  return EqualsIgnoringCase(left.bytes_, right.bytes_);
}

}  // namespace hostsweep
