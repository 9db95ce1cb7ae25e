#include "platform/text.h"

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "platform/text_operations.h"

namespace hostsweep {
namespace {

constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t Smallest = std::numeric_limits<std::int64_t>::min();

TEST(Text, EqualityIgnoresLetterCaseInAsciiOnly) {
  EXPECT_EQ(Text("True"), Text("tRUE"));
  EXPECT_NE(Text("True"), Text("True "));
  EXPECT_NE(Text("["), Text("{"));  // 32 apart, as letters of two cases are
  EXPECT_NE(Text("\u00C4"), Text("\u00E4"));
  EXPECT_EQ(Text(), Text(""));
}

TEST(Text, CountsCharactersWhateverTheBytes) {
  const struct {
    const char* bytes;
    std::int64_t length;
  } rows[] = {
      {"", 0},
      {"abc", 3},
      {"a\u00E9\u20AC\U0001F600z", 5},  // 1 to 4 bytes each
      {"\xE2\x82", 2},                  // cut off
      {"\xE2\x82z", 3},                 // cut off by a letter
      {"\xC0\x80", 2},                  // overlong
      {"\xE0\x9F\xBF", 3},              // overlong
      {"\xED\xA0\x80", 3},              // surrogate
      {"\xED\x9F\xBF", 1},              // the last before the surrogates
      {"\xF0\x8F\xBF\xBF", 4},          // overlong
      {"\xF4\x8F\xBF\xBF", 1},          // the last of all
      {"\xF4\x90\x80\x80", 4},          // behind the last
      {"\x80\xFF", 2},                  // begins nothing
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Len(row.bytes), row.length) << row.bytes;
    EXPECT_EQ(Left(row.bytes, row.length).Bytes(), row.bytes);
    EXPECT_EQ(Right(row.bytes, row.length).Bytes(), row.bytes);
  }
}

TEST(Text, CutsClampCountsAndStarts) {
  const Text text = "\u00E9b\xFFz";
  const struct {
    std::int64_t number;
    const char* left;
    const char* right;
    const char* mid;
  } rows[] = {
      {Smallest, "", "", "\u00E9b\xFFz"},
      {-1, "", "", "\u00E9b\xFFz"},
      {0, "", "", "\u00E9b\xFFz"},
      {1, "\u00E9", "z", "\u00E9b\xFFz"},
      {3, "\u00E9b\xFF", "b\xFFz", "\xFFz"},
      {4, "\u00E9b\xFFz", "\u00E9b\xFFz", "z"},
      {5, "\u00E9b\xFFz", "\u00E9b\xFFz", ""},
      {Largest, "\u00E9b\xFFz", "\u00E9b\xFFz", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Left(text, row.number).Bytes(), row.left) << row.number;
    EXPECT_EQ(Right(text, row.number).Bytes(), row.right) << row.number;
    EXPECT_EQ(Mid(text, row.number).Bytes(), row.mid) << row.number;
  }
}

TEST(Text, InStrFindsWholeCharacters) {
  const struct {
    std::int64_t start;
    const char* source;
    const char* find;
    std::int64_t position;
  } rows[] = {
      {0, "abcabc", "abc", 1},
      {1, "abcabc", "abc", 1},
      {2, "abcabc", "abc", 4},
      {5, "abcabc", "abc", 0},
      {Largest, "abcabc", "abc", 0},
      {0, "aab", "ab", 2},
      {0, "NO Entry", "no entry", 1},
      {0, "no entry", "NO ENTRY", 1},
      {0, "\u20AC\xFF at ", " at ", 3},
      {2, "\u20AC\u20AC", "\u20AC", 2},
      {0, "\u00E9", "\xC3", 0},
      {0, "\u00E9", "\xA9", 0},
      {0, "\xA9\u00E9", "\xA9", 1},
      {0, "", "a", 0},
      {0, "ab", "abc", 0},
      {0, "ab", "", 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(InStr(row.start, row.source, row.find), row.position)
        << row.find << " in " << row.source << " from " << row.start;
  }
}

TEST(Text, TrimTakesWhiteSpaceOffBothEnds) {
  EXPECT_EQ(Trim(" \t\r\na b\r\n").Bytes(), "a b");
  EXPECT_EQ(Trim("\r\n \t").Bytes(), "");
  EXPECT_EQ(Trim("\u00A0a\v").Bytes(), "\u00A0a\v");
}

TEST(Text, UppercaseAltersNothingOutsideAscii) {
  EXPECT_EQ(Uppercase("az09:-@[`{\u00E4\xE4").Bytes(), "AZ09:-@[`{\u00E4\xE4");
}

TEST(Text, FieldsAreCountedSplitAndJoinedAlike) {
  const struct {
    const char* source;
    const char* separator;
    std::size_t count;
  } rows[] = {
      {"0:1:2:3:4:5", ":", 6}, {"abc", ":", 1},    {"a:", ":", 2}, {":", ":", 2},
      {"a::b", ":", 3},        {"aaaaa", "aa", 3}, {"", ":", 1},   {"\u00E9", "\xC3", 1},
      {"abc", "", 1},
  };
  for (const auto& row : rows) {
    const std::vector<Text> fields = Split(row.source, row.separator);
    EXPECT_EQ(fields.size(), row.count) << row.source;
    EXPECT_EQ(CountFields(row.source, row.separator), static_cast<std::int64_t>(row.count));
    EXPECT_EQ(Join(fields, row.separator).Bytes(), row.source);
  }
  EXPECT_EQ(Split("..7.", ".")[2].Bytes(), "7");
  EXPECT_EQ(Join({}, "-").Bytes(), "");
}

TEST(Text, StrIsPlainDecimal) {
  EXPECT_EQ(Str(0).Bytes(), "0");
  EXPECT_EQ(Str(-7).Bytes(), "-7");
  EXPECT_EQ(Str(Smallest).Bytes(), "-9223372036854775808");
}

TEST(Text, ValReadsPlainDecimalOnly) {
  const struct {
    const char* text;
    double value;
  } rows[] = {
      {"", 0},
      {"abc", 0},
      {"12abc", 12},
      {"2.9", 2.9},
      {"-2.9", -2.9},
      {"+5", 5},
      {"--5", 0},
      {"-", 0},
      {"5.", 5},
      {".5", 0},
      {"1.2.3", 1.2},
      {"1,5", 1},
      {"1e3", 1},
      {"0x10", 0},
      {"inf", 0},
      {"nan", 0},
      {" 1", 0},
      {"007", 7},
      {"1.5e3", 1.5},
      {"0.1", 0.1},
      {"19999.9", 19999.9},
      {"\u0661", 0},
      {"9007199254740993", 9007199254740992.0},
      {"9223372036854774784", 9223372036854774784.0},
  };
  for (const auto& row : rows) EXPECT_EQ(Val(row.text), row.value) << row.text;
  EXPECT_TRUE(std::isinf(Val(std::string(400, '9'))));
  EXPECT_EQ(Val("1." + std::string(5000, '0') + "1"), 1);
}

}  // namespace
}  // namespace hostsweep
