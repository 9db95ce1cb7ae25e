#include <gtest/gtest.h>

#include <utility>

#include "sweep/hardware_address.h"
#include "sweep/host_name.h"

namespace hostsweep {
namespace {

TEST(ParseHostName, TakesTheTargetOfThePointerRecord) {
  const std::pair<const char*, const char*> rows[] = {
      {"7.0.0.10.in-addr.arpa Domain Name POINTER Nas.lan.\r\n", "Nas.lan"},
      {"domain name pointer a.\nx domain name pointer b.\n",
       "a.\nx domain name pointer b"},                 // several records: all of them
      {"domain name pointer", ""},                     // nothing after the marker
      {"domain name pointer \t\n", ""},                // only white space
      {"domain name pointerX.nas.\n", ".nas"},         // whatever separates is skipped
      {"domain name pointer\u20ACnas.\n", "nas"},      // one character, not one byte
      {"domain name pointer\xE2\x82nas.", "\x82nas"},  // a byte that is no text is one
      {"domain name pointer nas..\n", "nas."},         // one dot, not two
      {"domain name pointer nas .\n", "nas "},         // no trimming after the dot
      {"Host 7.0.0.10.in-addr.arpa. not found: 3(NXDOMAIN)\n", "10.0.0.7"},
      {"", "10.0.0.7"}};
  for (const auto& [output, name] : rows) {
    EXPECT_EQ(ParseHostName(output, "10.0.0.7").Bytes(), name) << output;
  }
}

TEST(ParseHardwareAddress, NormalisesSixGroups) {
  const std::pair<const char*, const char*> rows[] = {
      {"? (10.0.0.7) at 0:1f:a:bc:D:e on en0 ifscope [ethernet]\n", "00-1F-0A-BC-0D-0E"},
      {"x AT 1:2:3:4:5:6 on en0\nx at 7:8:9:a:b:c on en1\n", "01-02-03-04-05-06"},
      {"x at 1::3:4:5:6 ", "01--03-04-05-06"},                  // an empty group stays
      {"x at 1:abc:3:4:5:\u00E9 ", "01-ABC-03-04-05-0\u00E9"},  // one character, two bytes
      {"x at a:2:3:4:5 on en0", "a:2:3:4:5"},
      {"x at a:b:c:d:e:f:a on en0", "a:b:c:d:e:f:a"},
      {"x at 0a-1b-2c-3d-4e-5f on en0", "0a-1b-2c-3d-4e-5f"},
      {"x at  1:2:3:4:5:6 on en0", ""},  // the token ends at its first blank
      {"x at 1:2:3:4:5:6\n", ""},        // and at nothing else
      {"x at 1:2:3:4:5:6 on en0\n10.0.0.8 -- NO ENTRY", ""},
      {"no entry at 1:2:3:4:5:6 on en0", ""},
      {"? (10.0.0.7) at (Incomplete) on en0\n", ""},
      {"\u20AC\u20AC\u20ACtoken end", "token"},  // no " at ": from the fourth character
      {"abc ", ""},
      {"ab", ""}};
  for (const auto& [output, address] : rows) {
    EXPECT_EQ(ParseHardwareAddress(output).Bytes(), address) << output;
  }
}

}  // namespace
}  // namespace hostsweep
