// src/platform/: texts, the command runner, and the search path.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/search_path.h"
#include "platform/shell.h"
#include "platform/text/text_operations.h"
#include "tools/next_program.h"

namespace hostsweep {
namespace {

TEST(Text, EqualityIgnoresLetterCaseInAsciiOnly) {
  EXPECT_EQ(Text("azAZ"), Text("AZaz"));
  EXPECT_NE(Text("True"), Text("True "));
  EXPECT_NE(Text("["), Text("{"));  // 32 apart, as letters of two cases are
  EXPECT_NE(Text("\u00C4"), Text("\u00E4"));
}

TEST(Text, CountsCharactersWhateverTheBytes) {
  const std::pair<const char*, std::int64_t> rows[] = {
      {"a\u00E9\u20AC\U0001F600z", 5},  // 1 to 4 bytes each
      {"\u0080\u0800\U00010000", 3},    // the first of each size
      {"\xE2\x82z", 3},                 // cut off by a letter
      {"\xE2\x82", 2},                  // cut off by the end
      {"\xC0\x80", 2},                  // overlong
      {"\xE0\x9F\xBF", 3},              // overlong
      {"\xED\xA0\x80", 3},              // the first surrogate
      {"\xED\x9F\xBF", 1},              // and the character before it
      {"\xF4\x8F\xBF\xBF", 1},          // the last of all
      {"\xF4\x90\x80\x80", 4},          // and what would follow it
      {"\x80\xFF", 2}};                 // begin nothing
  for (const auto& [bytes, length] : rows) EXPECT_EQ(Len(bytes), length) << bytes;
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
      {"0:1:2:3:4:5", ":", 6}, {"abc", ":", 1}, {"a:", ":", 2},        {"a::b", ":", 3},
      {"aaaaa", "aa", 3},      {"", ":", 1},    {"\u00E9", "\xC3", 1}, {"abc", "", 1}};
  for (const auto& [source, separator, count] : rows) {
    const std::vector<Text> fields = Split(source, separator);
    EXPECT_EQ(fields.size(), count) << source;
    EXPECT_EQ(CountFields(source, separator), static_cast<std::int64_t>(count)) << source;
    EXPECT_EQ(Join(fields, separator).Bytes(), source);
  }
}

TEST(Text, ValReadsPlainDecimalOnly) {
  const std::pair<const char*, double> rows[] = {
      {"", 0},        {"abc", 0}, {"12abc", 12},  {"-2.9", -2.9},
      {"+5", 5},      {"--5", 0}, {"5.", 5},      {".5", 0},
      {"1.2.3", 1.2}, {"1e3", 1}, {"0x10", 0},    {"inf", 0},
      {" 1", 0},      {"007", 7}, {"1.5e3", 1.5}, {"9007199254740993", 9007199254740992.0}};
  for (const auto& [text, value] : rows) EXPECT_EQ(Val(text), value) << text;
  EXPECT_TRUE(std::isinf(Val(std::string(400, '9'))));
}

std::string OutputOf(const std::string& command) {
  Shell shell;
  shell.Execute("echo earlier output");
  shell.Execute(command);
  return shell.Result().Bytes();
}

TEST(Shell, CollectsStandardOutputHoweverTheCommandEnds) {
  const std::pair<const char*, std::string> rows[] = {
      {"printf 'a\\n\\nb\\000\\377'", std::string("a\n\nb\0\xFF", 6)},
      {"head -c 4194304 /dev/zero", std::string(4194304, '\0')},
      {"no-such-program", ""},
      {"echo Message; echo error >&2; exit 1", "Message\n"},
      {"cat; echo read", "read\n"},
      {"echo before; kill -9 $$; echo after", "before\n"},
      {"echo  'a  b' \"$0\"", "a  b /bin/sh\n"}};
  for (const auto& [command, output] : rows) EXPECT_EQ(OutputOf(command), output) << command;
}

TEST(Shell, WaitsForACommandThatHasClosedItsOutput) {
  const std::string sign = testing::TempDir() + "hostsweep_has_ended";
  OutputOf("rm -f " + sign);
  OutputOf("exec >&-; sleep 0.2; : >" + sign);
  EXPECT_EQ(OutputOf("rm " + sign + " && echo ended"), "ended\n");
}

TEST(Shell, DoesNotWaitForProcessesThatTheCommandLeavesRunning) {
  EXPECT_EQ(OutputOf("(sleep 3; echo late) & echo now"), "now\n");
  // One that goes on printing without a pause.
  const std::string output = OutputOf(
      "(i=0; while [ $i -lt 999999 ]; do i=$((i + 1)); echo $i; done; echo late) & echo now");
  EXPECT_NE(output.find("now\n"), std::string::npos);
  EXPECT_EQ(output.find("late\n"), std::string::npos);
}

// A working directory with two programs called Arp, in own and other; what is called Arp in data
// and in folder is not a program.
class SearchPaths : public testing::Test {
 protected:
  SearchPaths() {
    const std::string commands =
        " && cd " + folder_ + " && mkdir -p own other data folder/Arp && ln -s own linked &&" +
        "ln -s /usr/bin system && touch own/Arp other/Arp data/Arp && chmod +x own/Arp other/Arp";
    EXPECT_EQ(std::system(("mkdir " + folder_ + commands).c_str()), 0);
    EXPECT_EQ(chdir(folder_.c_str()), 0);
  }
  ~SearchPaths() override { EXPECT_EQ(chdir("/") + std::system(("rm -r " + folder_).c_str()), 0); }

 private:
  std::string folder_ = testing::TempDir() + "hostsweep_search_path." + std::to_string(getpid());
};

TEST_F(SearchPaths, ToolsComeBeforeTheSystemsFoldersAndMissingOnesLast) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "/t:/usr/bin:"},
      {"/opt/usr/bin:/usr/bin2", "/opt/usr/bin:/usr/bin2:/t:/usr/bin:"},
      {"/a:/usr/sbin//:/b:/usr/bin", "/a:/t:/usr/sbin//:/b:/usr/bin"},
      {":system::system", ":/t:system::system:"}};
  for (const auto& [callers, begin] : rows) {
    const std::string path = SearchPath(callers, "/t");
    EXPECT_EQ(path.substr(0, std::strlen(begin)), begin);
    EXPECT_NE(path.find("/usr/sbin"), std::string::npos);
  }
  EXPECT_EQ(SearchPath("/usr/bin:/bin:/usr/sbin:/sbin", ""), "/usr/bin:/bin:/usr/sbin:/sbin");
}

TEST_F(SearchPaths, TheNextProgramIsTheFirstOtherOneAfterTheLastNameOfItsOwn) {
  const std::pair<const char*, const char*> rows[] = {
      {"own:other", "other/Arp"},
      {"other:own", ""},
      {"own:other:own", ""},
      {"own:other:linked//", ""},
      {"own/:none:data:folder:other/:/", "other//Arp"},
      {"none:other", "other/Arp"}};  // run by its path
  for (const auto& [path, next] : rows)
    EXPECT_EQ(NextProgram(path, "Arp", "own/Arp"), next) << path;
  ASSERT_EQ(chdir("other"), 0);
  EXPECT_EQ(NextProgram("../own", "Arp", "../own/Arp"), "");        // not in the working directory,
  EXPECT_EQ(NextProgram("../own:", "Arp", "../own/Arp"), "./Arp");  // unless the path names it
}

}  // namespace
}  // namespace hostsweep
