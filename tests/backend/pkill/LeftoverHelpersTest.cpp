#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/applications/ProcessTable.h"
#include "platform/linux/processes/LinuxChildProcesses.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds patience = 20s;

/// Scripts that run for a while, and what becomes of the processes that run them when the program
/// asks for the end of its helpers.
class LeftoverHelpers : public testing::Test {
 protected:
  /// What no shell ends is ended by its number, which it may have given back by now.
  ~LeftoverHelpers() override {
    for (const pid_t orphan : orphans_) {
      const std::vector<std::string> arguments = ProcessTable::arguments(orphan);
      const bool isOurs = std::ranges::any_of(arguments, [this](const std::string& argument) {
        return argument.starts_with(folder_.path().string());
      });
      if (isOurs) ::kill(orphan, SIGKILL);
    }
  }

  /// A script in that folder that says so when it runs and waits for its end.
  std::string script(const std::string& folder) {
    const std::filesystem::path path = folder_.path() / folder / "mediaremote-adapter.pl";
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << "$| = 1; print \"ready\\n\"; sleep 60;\n";
    return path.string();
  }

  /// Runs a program whose parent is a shell, as if whoever started it had gone.
  std::unique_ptr<TestProcess> orphan(const std::vector<std::string>& command) {
    std::vector<std::string> arguments{"sh", "-c", "\"$@\" & echo $!; wait", "sh"};
    arguments.insert(arguments.end(), command.begin(), command.end());
    auto process = start(arguments);
    const auto number = [&] { return process->output().find_first_of("0123456789"); };
    EXPECT_TRUE(waitUntil(
        [&] { return number() != std::string::npos && process->output().ends_with('\n'); },
        patience));
    orphans_.push_back(std::stoi(process->output().substr(number())));
    return process;
  }

  static std::unique_ptr<TestProcess> start(const std::vector<std::string>& command) {
    auto process = std::make_unique<TestProcess>(TestProcess::Start{.arguments = command});
    EXPECT_TRUE(
        waitUntil([&] { return process->output().find("ready") != std::string::npos; }, patience))
        << process->output();
    return process;
  }

  /// The end as the program asks for it; the exit status.
  static int endHelpers(const std::vector<std::string>& arguments) {
    LinuxChildProcesses children(TALMO_BUNDLE_FOLDER);
    int status = -1;
    const auto child = children.make({.executable = "/usr/bin/pkill",
                                      .arguments = arguments,
                                      .standardOutput = ChildOutput::nullDevice});
    std::atomic<bool> hasEnded = false;
    child->setTerminationHandler([&](const ChildTermination& end) {
      status = end.status;
      hasEnded = true;
    });
    EXPECT_EQ(child->launch(), std::nullopt);
    child->waitUntilExit();
    EXPECT_TRUE(waitUntil([&] { return hasEnded.load(); }, patience));
    return status;
  }

  /// Waits for the end of what an `orphan` runs, and with it of the shell.
  static bool hasEnded(TestProcess& process) { return process.waitForExit(patience).has_value(); }

 private:
  TemporaryFolder folder_;
  std::vector<pid_t> orphans_;
};

TEST_F(LeftoverHelpers, AreEnded) {
  const std::string path = script("plain");
  const auto one = orphan({"perl", path, "framework", "stream"});
  const auto other = orphan({"perl", path});
  EXPECT_EQ(endHelpers({"-f", path}), 0);
  EXPECT_TRUE(hasEnded(*one));
  EXPECT_TRUE(hasEnded(*other));
  EXPECT_EQ(endHelpers({"-f", path}), 1);
}

TEST_F(LeftoverHelpers, AreFoundByTheirPathAndNotByAPattern) {
  const std::string strange = script("a+b (c|d) [e-g].*^$\\ x");
  const std::string dots = script("any.thing");
  const std::string alike = script("anything");
  const auto one = orphan({"perl", strange});
  const auto two = orphan({"perl", dots});
  const auto innocent = orphan({"perl", alike});
  EXPECT_EQ(endHelpers({"-f", strange}), 0);
  EXPECT_TRUE(hasEnded(*one));
  EXPECT_TRUE(two->isRunning());
  EXPECT_EQ(endHelpers({"-f", dots}), 0);
  EXPECT_TRUE(hasEnded(*two));
  // As a pattern, the last path means this one too.
  EXPECT_TRUE(innocent->isRunning());
}

TEST_F(LeftoverHelpers, AreNotWhatMerelyNamesTheScript) {
  const std::string path = script("plain");
  std::vector<std::unique_ptr<TestProcess>> innocents;
  innocents.push_back(orphan({"perl", script("other"), path}));
  innocents.push_back(orphan({"perl", "-e", "$| = 1; print \"ready\\n\"; sleep 60", path}));
  innocents.push_back(orphan({"perl", script("plain/../plainer"), path + ".old"}));
  innocents.push_back(start({"tail", "-f", path}));
  const auto helper = orphan({"perl", path});
  EXPECT_EQ(endHelpers({"-f", path}), 0);
  EXPECT_TRUE(hasEnded(*helper));
  for (const auto& innocent : innocents) EXPECT_TRUE(innocent->isRunning());
}

TEST_F(LeftoverHelpers, AreNotThoseOfAProgramThatStillRuns) {
  const std::string path = script("plain");
  // The test is the program that asks, and this one's parent.
  const auto helper = start({"perl", path});
  EXPECT_EQ(endHelpers({"-f", path}), 1);
  EXPECT_TRUE(helper->isRunning());
}

TEST_F(LeftoverHelpers, AreNotLookedForWithAnythingElseThanAPath) {
  const std::string path = script("plain");
  const auto helper = orphan({"perl", path});
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{}, {path}, {"-f"}, {"-x", path}, {"-f", path, "more"}}) {
    EXPECT_EQ(endHelpers(arguments), 2);
  }
  EXPECT_EQ(endHelpers({"-f", ""}), 1);
  EXPECT_TRUE(helper->isRunning());
}

}  // namespace
}  // namespace talmo::test
