#include "platform/text.h"

#include "platform/characters.h"

namespace hostsweep {

bool operator==(const Text& left, const Text& right) {
  // Characters beyond ASCII consist of bytes beyond ASCII alone, so the bytes tell.
  return SameLetters(left.bytes_, right.bytes_);
}

}  // namespace hostsweep
