// The search path, the tools that come with the program, and the programs that they stand in for.
#include "platform/search_path.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/tools_directory.h"
#include "tools/next_program.h"

namespace hostsweep {
namespace {

// A working directory of the test's own. It holds two programs called Arp, in own and other; the
// Arp in data and the one in some are not programs.
class SearchPaths : public testing::Test {
 protected:
  SearchPaths() {
    EXPECT_EQ(chdir(mkdtemp(directory_.data())), 0);
    EXPECT_EQ(std::system("mkdir -p own other data some/Arp tree/libexec/hostsweep "
                          "a:b/libexec/hostsweep file/libexec && touch file/libexec/hostsweep "
                          "own/Arp other/Arp data/Arp && chmod +x own/Arp other/Arp && "
                          "ln -s own linked && ln -s /usr/bin system"),
              0);
  }
  ~SearchPaths() override {
    EXPECT_EQ(chdir("/") + std::system(("rm -r " + directory_).c_str()), 0);
  }

 private:
  std::string directory_ = testing::TempDir() + "hostsweep.XXXXXX";
};

TEST_F(SearchPaths, ToolsComeOnceBeforeTheSystemsDirectoriesAndMissingOnesLast) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "own:/usr/bin:"},
      {"/opt/usr/bin:/usr/bin2", "/opt/usr/bin:/usr/bin2:own:/usr/bin:"},
      {"/a:/usr/sbin//:/b:/usr/bin", "/a:own:/usr/sbin//:/b:/usr/bin"},
      {":system::system", ":own:system::system:"},
      {"own:/a", "/a:own:/usr/bin:"},
      {"/usr/bin:/a:linked/", "own:/usr/bin:/a:"},
      {"own/.:none:own//:/usr/bin:linked", "none:own:/usr/bin:"}};
  for (const auto& [callers, begin] : rows) {
    const std::string path = SearchPath(callers, "own");
    EXPECT_EQ(path.substr(0, std::string(begin).size()), begin);
    EXPECT_NE(path.find("/usr/sbin"), std::string::npos);
    EXPECT_EQ(path.find("own"), path.rfind("own"));
  }
  EXPECT_EQ(SearchPath("/usr/bin:/bin:/usr/sbin:/sbin", ""), "/usr/bin:/bin:/usr/sbin:/sbin");
  EXPECT_EQ(SearchPath("none:", "gone").substr(0, 15), "none::gone:/usr");
}

TEST_F(SearchPaths, ToolsAreBesideTheProgramsDirectory) {
  EXPECT_EQ(ToolsDirectory("tree/bin/x"), "tree/libexec/hostsweep");
  for (const char* program : {"a:b/bin/x", "file/bin/x", "none/bin/x", ""})
    EXPECT_EQ(ToolsDirectory(program), "") << program;
}

TEST_F(SearchPaths, TheNextProgramIsTheFirstOtherOneAfterTheLastNameOfItsOwn) {
  const std::pair<const char*, const char*> rows[] = {
      {"own:other", "other/Arp"},
      {"other:own", ""},
      {"own:other:linked//", ""},
      {"own/:none:data:some:other/:/", "other//Arp"},
      {"none:other", "other/Arp"}};  // run by its path
  for (const auto& [path, next] : rows)
    EXPECT_EQ(NextProgram(path, "Arp", "own/Arp"), next) << path;
  EXPECT_EQ(NextProgram("other", "Arp", ""), "");
  ASSERT_EQ(chdir("other"), 0);
  EXPECT_EQ(NextProgram("../own", "Arp", "../own/Arp"), "");        // not in the working directory,
  EXPECT_EQ(NextProgram("../own:", "Arp", "../own/Arp"), "./Arp");  // unless the path names it
}

}  // namespace
}  // namespace hostsweep
