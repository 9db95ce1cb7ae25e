// The answer of the name servers, as far as the output of host(1) tells it.
#pragma once

#include "platform/text/text.h"

namespace hostsweep {

enum class NameAnswer {
  Name,     // a pointer record
  NoName,   // there is none
  NoReply,  // no server answered
  Refused,  // a server refused to answer
  Failed    // a server could not answer, or the output tells nothing
};

// The answer in the output of the host(1) of BIND 9, for an address. A pointer record anywhere in
// it counts, else its last line that tells an answer.
NameAnswer ReadNameAnswer(const Text& output);

}  // namespace hostsweep
