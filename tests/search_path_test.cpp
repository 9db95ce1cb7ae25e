#include "platform/search_path.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace hostsweep {
namespace {

// A working directory with two programs called Arp, in own and other; what is called Arp in data
// and in folder is no program.
class SearchPaths : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NE(mkdtemp(folder_.data()), nullptr);
    ASSERT_EQ(chdir(folder_.c_str()), 0);
    ASSERT_EQ(std::system("mkdir -p own other data folder/Arp && ln -s own linked &&"
                          "ln -s /usr/bin system && touch own/Arp other/Arp data/Arp &&"
                          "chmod +x own/Arp other/Arp"),
              0);
  }
  void TearDown() override { EXPECT_EQ(std::system(("cd / && rm -r " + folder_).c_str()), 0); }

 private:
  std::string folder_ = testing::TempDir() + "hostsweep_XXXXXX";
};

// The path without those of /bin and /sbin that are links to another of its folders on this system.
std::string Distinct(std::string path) {
  for (const std::string link : {":/bin", ":/sbin"}) {
    struct stat status = {};
    lstat(link.c_str() + 1, &status);
    if (S_ISLNK(status.st_mode)) path.erase(path.rfind(link), link.size());
  }
  return path;
}

TEST_F(SearchPaths, ToolsComeBeforeTheSystemsFoldersAndMissingOnesLast) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "/t:/usr/bin:/bin:/usr/sbin:/sbin"},
      {"/opt/usr/bin:/usr/bin2", "/opt/usr/bin:/usr/bin2:/t:/usr/bin:/bin:/usr/sbin:/sbin"},
      {"/a:/usr/sbin//:/b:/usr/bin", "/a:/t:/usr/sbin//:/b:/usr/bin:/bin:/sbin"},
      {":system::system", ":/t:system::system:/bin:/usr/sbin:/sbin"}};
  for (const auto& [callers, path] : rows) EXPECT_EQ(SearchPath(callers, "/t"), Distinct(path));
  EXPECT_EQ(SearchPath("/usr/bin", ""), Distinct("/usr/bin:/bin:/usr/sbin:/sbin"));
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
  EXPECT_EQ(NextProgram("../own", "Arp", "../own/Arp"), "");        // not the working directory's,
  EXPECT_EQ(NextProgram("../own:", "Arp", "../own/Arp"), "./Arp");  // unless the path names it
  ASSERT_EQ(chdir(".."), 0);
}

}  // namespace
}  // namespace hostsweep
