// The hardware address that the ARP cache holds for an address.
#pragma once

#include "platform/shell.h"
#include "platform/text.h"

namespace hostsweep {

// Runs "Arp " with the address; gives what `ParseHardwareAddress` makes of its output.
Text LookupHardwareAddress(Shell& shell, const Text& address);

// The hardware address in the output of arp(8): normalised if it has six groups joined by ":",
// else as printed. Empty if the output holds "no entry" or "(incomplete)" anywhere.
//
// It stands between the first " at " and the next blank. Without that blank the result is empty;
// without " at " it is what stands between the third character and the first blank behind it.
Text ParseHardwareAddress(const Text& output);

// Six groups joined by ":" made into upper case and joined by "-", a group of one character led by
// "0", so that the same card always reads the same.
Text NormaliseHardwareAddress(const Text& token);

}  // namespace hostsweep
