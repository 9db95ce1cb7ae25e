// src/platform/text/: texts and the operations on them.
#include <gtest/gtest.h>

#include <tuple>

#include "platform/text/text_operations.h"

namespace hostsweep {
namespace {

TEST(Text, EqualityIgnoresLetterCaseInAsciiOnly) {
  EXPECT_EQ(Text("azAZ"), Text("AZaz"));
  EXPECT_NE(Text("True"), Text("True "));
  EXPECT_NE(Text("["), Text("{"));  // 32 apart, as letters of two cases are
  EXPECT_NE(Text("\u00C4"), Text("\u00E4"));
}

// Characters of each size, the first and the last of each size, and those at the bounds of the lead
// bytes that not every byte can follow; overlong forms, a surrogate, and a code after the last
// character; bytes that begin no character, or a character that a letter or the end cuts off.
TEST(Text, CountsCharactersWhateverTheBytes) {
  for (const char* one :
       {"\u07FF", "\uD7FF", "\xED\x80\x80", "\uFFFF", "\xF4\x80\x80\x80", "\U0010FFFF"})
    EXPECT_EQ(Len(one), 1) << one;
  for (const char* two : {"\xC0\x80", "\xC3\xC0", "\x80\xFF", "\xE2\x82"})
    EXPECT_EQ(Len(two), 2) << two;
  for (const char* three : {"\u0080\u0800\U00010000", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xE2\x82z"})
    EXPECT_EQ(Len(three), 3) << three;
  for (const char* four : {"\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"})
    EXPECT_EQ(Len(four), 4) << four;
  EXPECT_EQ(Len("a\u00E9\u20AC\U0001F600z"), 5);
}

TEST(Text, CutsClampCountsAndStarts) {
  const Text text = "\u00E9b\xFFz";
  const std::tuple<std::int64_t, const char*, const char*, const char*> rows[] = {
      {INT64_MIN, "", "", "\u00E9b\xFFz"},     {0, "", "", "\u00E9b\xFFz"},
      {1, "\u00E9", "z", "\u00E9b\xFFz"},      {3, "\u00E9b\xFF", "b\xFFz", "\xFFz"},
      {5, "\u00E9b\xFFz", "\u00E9b\xFFz", ""}, {INT64_MAX, "\u00E9b\xFFz", "\u00E9b\xFFz", ""}};
  for (const auto& [number, left, right, mid] : rows) {
    EXPECT_EQ(Left(text, number).Bytes(), left) << number;
    EXPECT_EQ(Right(text, number).Bytes(), right) << number;
    EXPECT_EQ(Mid(text, number).Bytes(), mid) << number;
  }
}

TEST(Text, InStrFindsWholeCharacters) {
  const std::tuple<std::int64_t, const char*, const char*, std::int64_t> rows[] = {
      {0, "abcabc", "abc", 1},  {2, "abcabc", "abc", 4},          {5, "abcabc", "abc", 0},
      {0, "aab", "AB", 2},      {0, "\u20AC\xFF at ", " at ", 3}, {0, "\u00E9", "\xC3", 0},
      {0, "\u00E9", "\xA9", 0}, {0, "\xA9\u00E9", "\xA9", 1},     {0, "ab", "abc", 0},
      {0, "ab", "", 0}};
  for (const auto& [start, text, find, at] : rows) EXPECT_EQ(InStr(start, text, find), at) << text;
}

TEST(Text, FieldsAreCountedSplitAndJoinedAlike) {
  const std::tuple<const char*, const char*, std::size_t> rows[] = {
      {"0:1:2:3:4:5", ":", 6}, {":abc", ":", 2}, {"a:", ":", 2},        {"a::b", ":", 3},
      {"aaaaa", "aa", 3},      {"", ":", 1},     {"\u00E9", "\xC3", 1}, {"abc", "", 1}};
  for (const auto& [source, separator, count] : rows) {
    const std::vector<Text> fields = Split(source, separator);
    EXPECT_EQ(fields.size(), count) << source;
    EXPECT_EQ(CountFields(source, separator), static_cast<std::int64_t>(count)) << source;
    EXPECT_EQ(Join(fields, separator).Bytes(), source);
  }
}

TEST(Text, TrimTakesWhiteSpaceFromBothEnds) {
  const std::pair<const char*, const char*> rows[] = {
      {" \t\r\na \v b\n\r\t ", "a \v b"}, {"\va\v", "\va\v"}, {"a", "a"}, {" \n", ""}};
  for (const auto& [text, trimmed] : rows) EXPECT_EQ(Trim(text).Bytes(), trimmed);
}

TEST(Text, ValReadsPlainDecimalOnly) {
  const std::pair<const char*, double> rows[] = {
      {"", 0},        {"abc", 0}, {"12abc", 12},  {"-2.9", -2.9},
      {"+5", 5},      {"--5", 0}, {"5.", 5},      {".5", 0},
      {"1.2.3", 1.2}, {"1e3", 1}, {"0x10", 0},    {"inf", 0},
      {" 1", 0},      {"007", 7}, {"1.5e3", 1.5}, {"9007199254740993", 9007199254740992.0}};
  for (const auto& [text, value] : rows) EXPECT_EQ(Val(text), value) << text;
  EXPECT_GT(Val(std::string(400, '9')), 1.7976931348623157e308);  // the largest double
}

}  // namespace
}  // namespace hostsweep
