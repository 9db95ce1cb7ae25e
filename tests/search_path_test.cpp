#include "platform/search_path.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

namespace hostsweep {
namespace {

namespace fs = std::filesystem;

// Folders of the test's own, "@" in its search paths.
class SearchPaths : public testing::Test {
 protected:
  SearchPaths() : root_(fs::path(testing::TempDir()) / "hostsweep_search_path") {
    fs::remove_all(root_);
    for (const char* folder : {"own", "other", "data", "folder/Arp"}) {
      fs::create_directories(root_ / folder);
    }
    fs::create_directory_symlink("/usr/bin", root_ / "system");
    fs::create_directory_symlink("own", root_ / "linked");
    for (const char* file : {"own/Arp", "other/Arp", "data/Arp"})
      std::ofstream(root_ / file) << '\n';
    for (const char* file : {"own/Arp", "other/Arp"}) {
      fs::permissions(root_ / file, fs::perms::owner_all);
    }
  }
  ~SearchPaths() override { fs::remove_all(root_); }

  std::string At(std::string text) const {
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@')) {
      text.replace(at, 1, root_.string());
    }
    return text;
  }

 private:
  fs::path root_;
};

// The folders without those of /bin, /usr/sbin and /sbin that are others by another name here.
std::string Distinct(std::string path) {
  for (const auto& [link, folder] : {std::pair("/bin", "/usr/bin"), {"/sbin", "/usr/sbin"}}) {
    const std::size_t at = path.rfind(std::string(":") + link);
    if (fs::equivalent(link, folder)) path.erase(at, std::string(link).size() + 1);
  }
  return path;
}

TEST_F(SearchPaths, ToolsComeBeforeTheSystemsFoldersAndMissingOnesLast) {
  const std::pair<const char*, std::string> rows[] = {
      {"", Distinct("/t:/usr/bin:/bin:/usr/sbin:/sbin")},
      {"/opt/usr/bin:/usr/bin2",
       Distinct("/opt/usr/bin:/usr/bin2:/t:/usr/bin:/bin:/usr/sbin:/sbin")},
      {"/a:/usr/sbin//:/b:/usr/bin", Distinct("/a:/t:/usr/sbin//:/b:/usr/bin:/bin:/sbin")},
      {":@/system::@/system", Distinct(":/t:@/system::@/system:/bin:/usr/sbin:/sbin")}};
  for (const auto& [callers, path] : rows) EXPECT_EQ(SearchPath(At(callers), "/t"), At(path));
  EXPECT_EQ(SearchPath("/usr/bin", ""), Distinct("/usr/bin:/bin:/usr/sbin:/sbin"));
}

TEST_F(SearchPaths, TheNextProgramIsTheFirstOtherOneAfterTheLastOfOwnName) {
  const std::pair<const char*, const char*> rows[] = {
      {"@/own:@/other", "@/other/Arp"},
      {"@/other:@/own", ""},
      {"@/own:@/other:@/own", ""},
      {"@/own:@/other:@/linked//", ""},
      {"@/own/:@/none:@/data:@/folder:@/other/:@/other", "@/other//Arp"},
      {"@/none:@/other", "@/other/Arp"}};  // called by its path
  for (const auto& [path, next] : rows) {
    EXPECT_EQ(NextProgram(At(path), "Arp", At("@/own/Arp")), At(next)) << path;
  }
  const fs::path before = fs::current_path();
  fs::current_path(At("@/other"));
  EXPECT_EQ(NextProgram(At("@/own"), "Arp", At("@/own/Arp")), "");
  EXPECT_EQ(NextProgram(At("@/own:"), "Arp", At("@/own/Arp")), "./Arp");
  fs::current_path(before);
}

}  // namespace
}  // namespace hostsweep
