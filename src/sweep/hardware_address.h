// The hardware address in what arp(8) prints.
#pragma once

#include "platform/text/text.h"

namespace hostsweep {

// The hardware address in the output of arp(8): normalised if it has six groups joined by ":", else
// as printed. Empty if "no entry" or "(incomplete)" occurs anywhere in the output.
//
// It is the text between the first " at " and the next space; empty if there is no such space. In
// an output without " at " it is the text from the fourth character to the next space.
Text ParseHardwareAddress(const Text& output);

// The token, six groups joined by ":", with its groups in upper case and joined by "-", and "0" put
// in front of a group of one character: one spelling for each hardware address.
Text NormaliseHardwareAddress(const Text& token);

}  // namespace hostsweep
