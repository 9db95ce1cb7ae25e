// src/platform/: pipes, caught signals, child processes, the shell and standard output; and the
// search path with the tools on it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>

#include <cerrno>
#include <cstdlib>

#include "app/installed_path.h"
#include "app/tools_directory.h"
#include "platform/caught_signal.h"
#include "platform/child_process.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/exceptions.h"
#include "platform/process.h"
#include "platform/shell.h"
#include "tools/next_program.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds Now(0);
constexpr milliseconds Long(30000);

TEST(ReadWithin, AppendsDataAndTellsTheEndFromTheTimeout) {
  Pipe pipe = OpenPipe();
  std::string output = "a";
  const auto begin = Clock::now();
  EXPECT_EQ(ReadWithin(milliseconds(20), pipe.Reader, output), ReadResult::Timeout);
  EXPECT_GE(Clock::now() - begin, milliseconds(20));
  EXPECT_EQ(write(pipe.Writer.Number(), "bc", 2), 2);
  EXPECT_EQ(ReadWithin(Long, pipe.Reader, output), ReadResult::Data);
  pipe.Writer.Close();
  EXPECT_EQ(ReadWithin(Long, pipe.Reader, output), ReadResult::End);
  EXPECT_EQ(output, "abc");
}

TEST(CaughtSignal, CanBeReadAndIsNoInterruption) {
  signal(SIGTERM, SIG_IGN);
  {
    std::string data;
    const CaughtSignal caught(SIGTERM);
    EXPECT_EQ(ReadWithin(Now, caught.Reader(), data), ReadResult::Timeout);
    for (int i = 0; i < 70000; ++i) raise(SIGTERM);  // more than the pipe holds
    errno = ENOTTY;
    raise(SIGTERM);
    EXPECT_EQ(errno, ENOTTY);
    EXPECT_EQ(ReadWithin(Now, caught.Reader(), data), ReadResult::Data);
  }
  EXPECT_EQ(signal(SIGTERM, SIG_DFL), SIG_DFL);
}

// A shell that runs the code, and what it prints.
struct Running {
  Pipe Output;
  ChildProcess Child;
};

Running Start(const std::string& code) {
  Pipe output = OpenPipe();
  ChildProcess child = ChildProcess::StartIsolated({"/bin/sh", "-c", code}, output.Writer.Number());
  output.Writer.Close();
  return {std::move(output), std::move(child)};
}

TEST(ChildProcess, EndsWithItsOwner) {
  Running shell = Start("echo $$; exec sleep 99");
  std::string output;
  EXPECT_EQ(ReadWithin(Long, shell.Output.Reader, output), ReadResult::Data);
  { const ChildProcess last = std::move(shell.Child); }
  EXPECT_EQ(kill(std::stoi(output), 0), -1);
}

TEST(ChildProcess, TellsItsEndWhateverTheSignals) {
  struct sigaction interruption = {};
  interruption.sa_handler = [](int) {};
  sigaction(SIGALRM, &interruption, nullptr);
  Running shell = Start("sleep 9");
  EXPECT_FALSE(shell.Child.HasEnded());
  shell.Child.Signal(SIGTERM);
  EXPECT_EQ(shell.Child.Wait(), 128 + SIGTERM);
  EXPECT_TRUE(shell.Child.HasEnded());

  const itimerval often = {{0, 10000}, {0, 10000}};
  setitimer(ITIMER_REAL, &often, nullptr);
  EXPECT_EQ(Start("sleep 0.1; exit 3").Child.Wait(), 3);
  const itimerval never = {};
  setitimer(ITIMER_REAL, &never, nullptr);

  signal(SIGCHLD, SIG_IGN);  // so that the system does not keep how a child ends
  Running forgotten = Start("exit 3");
  EXPECT_EQ(forgotten.Child.Wait(), 0);
  EXPECT_TRUE(forgotten.Child.HasEnded());
  signal(SIGCHLD, SIG_DFL);
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
      {"printf a; sleep 0.2; dd if=/dev/zero bs=1 count=300000", 'a' + std::string(300000, '\0')},
      {"cat; echo Message; echo error >&2; no-such-program", "Message\n"},
      {"echo before; kill -9 $$; echo after", "before\n"},
      {"echo  'a  b' \"$0\"", "a  b /bin/sh\n"},
      {"(sleep 60; echo late) & echo now", "now\n"}};
  const int next = OpenPipe().Reader.Number();
  for (const auto& [command, output] : rows) EXPECT_EQ(OutputOf(command), output) << command;
  EXPECT_EQ(OpenPipe().Reader.Number(), next);  // no descriptor is left open
}

TEST(Shell, WaitsForTheCommandAlone) {
  const auto begin = Clock::now();
  OutputOf("exec >&-; sleep 0.2");
  EXPECT_GE(Clock::now() - begin, milliseconds(200));
  // A process that the command leaves running goes on printing as long as somebody reads it.
  const std::string output = OutputOf("(while echo; do :; done) & echo now");
  EXPECT_NE(output.find("now\n"), std::string::npos);
}

TEST(Shell, FindsProgramsOnTheReplacedSearchPathAlone) {
  std::string first = "PATH=/a";
  std::string second = "PATH=/b";
  char* const twice[] = {first.data(), second.data(), nullptr};
  // In a child, since setenv(3) owns the environment that it has made before.
  const auto isReplaced = [&] {
    environ = const_cast<char**>(twice);
    ReplaceSearchPath("/c");
    return OutputOf("echo $PATH") == "/c\n";
  };
  EXPECT_EXIT(std::_Exit(isReplaced() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(PrepareProcess, OpensStandardDescriptorsAndGivesCommandsTheSignalsThatTheCallerMeantForThem) {
  for (const int number : {SIGCHLD, SIGQUIT}) signal(number, SIG_IGN);
  const Descriptor standardOutput(dup(STDOUT_FILENO));
  for (const int number : {STDIN_FILENO, STDOUT_FILENO}) close(number);
  PrepareProcess();
  for (const int number : {STDIN_FILENO, STDOUT_FILENO}) EXPECT_EQ(fcntl(number, F_GETFD), 0);
  EXPECT_EQ(write(STDOUT_FILENO, "", 1), -1);
  dup2(standardOutput.Number(), STDOUT_FILENO);
  EXPECT_EQ(signal(SIGCHLD, SIG_DFL), SIG_DFL);
  EXPECT_EQ(OutputOf("kill -PIPE $$; echo ignored"), "");
  EXPECT_EQ(OutputOf("kill -XFSZ $$; echo ignored"), "");
  EXPECT_EQ(OutputOf("kill -QUIT $$; echo ignored"), "ignored\n");
  for (const int number : {SIGPIPE, SIGQUIT, SIGXFSZ}) signal(number, SIG_DFL);
}

TEST(Print, WritesALineThatThePipeDoesNotTakeWholeAndThrowsIfItCannot) {
  const std::string line(300000, 'x');
  Pipe pipe = OpenPipe();
  fcntl(pipe.Writer.Number(), F_SETFL, O_NONBLOCK);
  std::string received;
  std::thread reader([&] {
    while (ReadWithin(Long, pipe.Reader, received) == ReadResult::Data) continue;
  });
  const Descriptor standardOutput(dup(STDOUT_FILENO));
  dup2(pipe.Writer.Number(), STDOUT_FILENO);
  Print(line);
  close(STDOUT_FILENO);
  EXPECT_THROW(Print(line), OutputException);
  dup2(standardOutput.Number(), STDOUT_FILENO);
  pipe.Writer.Close();
  reader.join();
  EXPECT_TRUE(received == line + '\n') << received.size();
}

// A working directory of the test's own. It has two programs called Arp, in "own" and "other"; the
// Arp in "data" and the Arp in "some" are not programs.
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
    const std::string path = SearchPathWithTools(callers, "own");
    EXPECT_EQ(path.substr(0, std::string(begin).size()), begin);
    EXPECT_NE(path.find("/usr/sbin"), std::string::npos);
    EXPECT_EQ(path.find("own"), path.rfind("own"));
  }
  EXPECT_EQ(SearchPathWithTools("/usr/bin:/bin:/usr/sbin:/sbin", ""),
            "/usr/bin:/bin:/usr/sbin:/sbin");
  EXPECT_EQ(SearchPathWithTools("none:", "gone").substr(0, 15), "none::gone:/usr");
}

TEST_F(SearchPaths, ToolsAreBesideTheProgramsDirectory) {
  EXPECT_EQ(InstalledPath("/usr/local/bin/x", "../../lib/h"), "/usr/lib/h");
  EXPECT_EQ(InstalledPath("/x", "h"), "/h");
  EXPECT_EQ(InstalledPath("", "h"), "");
  EXPECT_EQ(ToolsDirectory("tree/bin/x"), "tree/libexec/hostsweep");
  for (const char* program : {"a:b/bin/x", "file/bin/x", "none/bin/x", ""})
    EXPECT_EQ(ToolsDirectory(program), "") << program;
}

TEST_F(SearchPaths, TheNextProgramIsTheFirstOtherOneAfterTheLastNameOfItsOwn) {
  const auto next = [](const char* path, const char* self) {
    return NextProgram(ParseSearchPath(path), "Arp", self);
  };
  const std::pair<const char*, const char*> rows[] = {
      {"own:other", "other/Arp"},
      {"other:own", ""},
      {"own:other:linked//", ""},
      {"own/:none:data:some:other/:/", "other//Arp"},
      {"none:other", "other/Arp"}};  // run by its path
  for (const auto& [path, found] : rows) EXPECT_EQ(next(path, "own/Arp"), found) << path;
  EXPECT_EQ(next("other", ""), "");
  ASSERT_EQ(chdir("other"), 0);
  EXPECT_EQ(next("../own", "../own/Arp"), "");        // not in the working directory,
  EXPECT_EQ(next("../own:", "../own/Arp"), "./Arp");  // unless the path names it
}

}  // namespace
}  // namespace hostsweep
