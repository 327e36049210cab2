// What only real children can show. Processes and descriptors of this test alone are looked at.

#include <atomic>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/processes/LinuxChildProcesses.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

/// The processes, zombies included, whose parent is this one.
int childCount() {
  int count = 0;
  for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
    std::ifstream children(thread.path() / "children");
    for (std::string process; children >> process;) ++count;
  }
  return count;
}

long descriptorCount() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return std::distance(begin(all), end(all));
}

class LinuxChildProcessTest : public testing::Test {
 protected:
  static ChildProcessParameters test(std::vector<std::string> arguments) {
    return {.executable = TALMO_TEST_CHILD, .arguments = std::move(arguments)};
  }

  /// What the child writes until it ends.
  std::string output(const ChildProcessParameters& parameters) {
    const auto child = children.make(parameters);
    EXPECT_EQ(child->launch(), std::nullopt);
    std::string text = child->standardOutput()->readToEnd();
    child->waitUntilExit();
    return text;
  }

  LinuxChildProcesses children;
};

TEST_F(LinuxChildProcessTest, ArgumentsArriveAsTheyAre) {
  const std::vector<std::string> arguments{"two words", "\"'quotes`", "line\nbreak", "",  "$(id)",
                                           "a;b|c&d>e", "*",          "--",          "\\"};
  std::vector<std::string> all{"show"};
  std::string expected;
  for (const std::string& argument : arguments) {
    all.push_back(argument);
    expected += argument + '\0';
  }
  EXPECT_EQ(output(test(all)), expected);
}

TEST_F(LinuxChildProcessTest, WhyAProgramCannotBeStartedIsToldInTheSystemsWords) {
  const TemporaryFolder folder;
  const auto failure = [this](const std::string& program) {
    return children.make({.executable = program})->launch();
  };
  const std::string plain = (folder.path() / "plain").string();
  std::ofstream(plain) << "no program";
  EXPECT_EQ(failure(plain), "Permission denied");
  EXPECT_EQ(failure(folder.path().string()), "Permission denied");
  EXPECT_EQ(failure(plain + "/below"), "Not a directory");
  EXPECT_EQ(failure(""), "No such file or directory");
  std::filesystem::permissions(plain, std::filesystem::perms::owner_all);
  EXPECT_EQ(failure(plain), "Exec format error");
  EXPECT_EQ(childCount(), 0);
}

TEST_F(LinuxChildProcessTest, AChildHasTheThreeStandardDescriptorsOnlyAndDefaultSignals) {
  // Another part of the program that neither closes its descriptors nor resets its signals.
  const FileDescriptor leaked(::open("/dev/null", O_RDONLY));
  const FileDescriptor high(::fcntl(leaked.get(), F_DUPFD, 700));
  struct sigaction ignore{};
  struct sigaction handle{};
  struct sigaction usualIgnored{};
  struct sigaction usualHandled{};
  ignore.sa_handler = SIG_IGN;
  handle.sa_handler = [](int) {};
  ::sigaction(SIGPIPE, &ignore, &usualIgnored);
  ::sigaction(SIGTERM, &handle, &usualHandled);
  sigset_t blocked;
  sigset_t usual;
  ::sigfillset(&blocked);
  ::pthread_sigmask(SIG_SETMASK, &blocked, &usual);
  const std::string state = output(test({"state"}));
  ::pthread_sigmask(SIG_SETMASK, &usual, nullptr);
  ::sigaction(SIGPIPE, &usualIgnored, nullptr);
  ::sigaction(SIGTERM, &usualHandled, nullptr);
  EXPECT_THAT(state, HasSubstr("descriptors 0 1 2;"));
  EXPECT_THAT(state, HasSubstr("SigBlk 0000000000000000"));
  // Signals 32 and 33 are the C library's own, which posix_spawn(3) always sets to be ignored.
  EXPECT_THAT(state, HasSubstr("SigIgn 0000000180000000"));
}

TEST_F(LinuxChildProcessTest, StandardInputIsEmpty) {
  EXPECT_EQ(output({.executable = "/bin/cat"}), "");
}

TEST_F(LinuxChildProcessTest, AStandardErrorWithoutEndIsDrainedByItsHandler) {
  ChildProcessParameters parameters = test({"flood", "2"});
  parameters.standardError = ChildOutput::pipe;
  const auto child = children.make(parameters);
  std::atomic<std::size_t> count = 0;
  child->standardError()->setReadabilityHandler(
      [&count](OutputPipe& pipe) { count += pipe.availableData().size(); });
  ASSERT_EQ(child->launch(), std::nullopt);
  EXPECT_TRUE(waitUntil([&] { return count > 10'000'000; }));
  child->terminate();
  child->waitUntilExit();
  EXPECT_TRUE(waitUntil([] { return childCount() == 0; }));
  child->standardError()->setReadabilityHandler(nullptr);
  // What ran on the watching thread before this has ended.
  std::atomic<bool> isPast = false;
  child->setTerminationHandler([&isPast](const ChildTermination&) { isPast = true; });
  ASSERT_TRUE(waitUntil([&] { return isPast.load(); }));
}

TEST_F(LinuxChildProcessTest, ARunningChildThatIsLetGoOfIsReapedToo) {
  for (int index = 0; index < 10; ++index) {
    const auto child = children.make(test({"wait", "20"}));
    ASSERT_EQ(child->launch(), std::nullopt);
  }
  EXPECT_TRUE(waitUntil([] { return childCount() == 0; }));
}

TEST_F(LinuxChildProcessTest, ChildrenOfOthersAreLeftAlone) {
  constexpr int status = 42;
  const pid_t foreign = ::fork();
  ASSERT_GE(foreign, 0);
  if (foreign == 0) ::_exit(status);
  EXPECT_EQ(output(test({"show", "x"})), std::string("x\0", 2));
  int ended = 0;
  EXPECT_EQ(::waitpid(foreign, &ended, 0), foreign);
  EXPECT_EQ(WEXITSTATUS(ended), status);
}

TEST_F(LinuxChildProcessTest, RoundsOfChildrenLeaveNoDescriptorAndNoProcess) {
  std::optional<long> before;
  for (int round = 0; round < 10; ++round) {
    for (int index = 0; index < 10; ++index) output(test({"show", std::to_string(index)}));
    EXPECT_NE(children.make({.executable = "/missing"})->launch(), std::nullopt);
    const auto neverStarted = children.make(test({}));
    // The watching thread keeps the process's descriptor a moment longer than the wait.
    if (!before) before = descriptorCount();
    EXPECT_TRUE(waitUntil([&] { return descriptorCount() <= *before; }));
    EXPECT_EQ(childCount(), 0);
  }
}

TEST_F(LinuxChildProcessTest, TwoHundredChildrenAtOnceFromTwoThreads) {
  std::atomic<int> ended = 0;
  std::atomic<std::size_t> bytes = 0;
  constexpr int each = 100;
  const auto launch = [&](std::vector<std::shared_ptr<ChildProcess>>& kept) {
    for (int index = 0; index < each; ++index) {
      kept.push_back(children.make(test({"show", "12345", "live"})));
      kept.back()->setTerminationHandler([&ended](const ChildTermination&) { ++ended; });
      kept.back()->standardOutput()->setReadabilityHandler(
          [&bytes](OutputPipe& pipe) { bytes += pipe.availableData().size(); });
      EXPECT_EQ(kept.back()->launch(), std::nullopt);
    }
  };
  std::vector<std::shared_ptr<ChildProcess>> first;
  std::vector<std::shared_ptr<ChildProcess>> second;
  std::thread other([&] { launch(second); });
  launch(first);
  other.join();
  EXPECT_TRUE(waitUntil([&] { return ended == 2 * each && bytes == 2 * each * 11U; }, 40s));
  EXPECT_EQ(childCount(), 0);
}

}  // namespace
}  // namespace talmo::test
