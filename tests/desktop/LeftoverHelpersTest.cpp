#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 20s;

/// What a start of the program does to the now-playing helpers of an earlier one.
class LeftoverHelpers : public DesktopTest {
 protected:
  /// The program as it was built, in a folder of this name.
  std::filesystem::path copy(const std::string& name) const {
    const std::filesystem::path built = std::filesystem::path(TALMO_PROGRAM).parent_path();
    std::filesystem::path folder = desktop_.folder() / name;
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(TALMO_PROGRAM, folder / "talmo");
    for (const char* const part : {"frameworks", "libexec", "resources"}) {
      std::filesystem::create_directory_symlink(built / part, folder / part);
    }
    return folder;
  }

  static std::string script(const std::filesystem::path& copy) {
    return copy / "resources" / "mediaremote-adapter.pl";
  }

  /// The helper of that copy at work, as a program that has gone would leave it: its parent is a
  /// shell.
  std::unique_ptr<TestProcess> leaveHelper(const std::filesystem::path& copy) const {
    auto helper = desktop_.start({"sh", "-c", "\"$@\" & wait", "sh", "perl", script(copy),
                                  copy / "frameworks" / "MediaRemoteAdapter.framework", "stream"});
    // It tells what plays as soon as it knows.
    EXPECT_TRUE(waitUntil([&] { return !helper->output().empty(); }, patience));
    EXPECT_TRUE(helper->output().starts_with('{')) << helper->output();
    return helper;
  }

  /// Starts the program in `copy` and waits until it has done with the helpers.
  void start(const std::filesystem::path& copy) {
    TalmoProcess::select(desktop_, "audacious");
    talmo_ = std::make_unique<TalmoProcess>(desktop_, copy / "talmo");
  }
};

TEST_F(LeftoverHelpers, AreEndedByTheNextStartAndNothingElseIs) {
  const FakePlayerProcess player(desktop_, "audacious");
  // As a pattern, the first means the second, and not itself.
  const std::filesystem::path ours = copy("Talmo +(1.0) [a|b]*");
  const std::filesystem::path others = copy("Talmo 1x0 b");
  std::vector<std::unique_ptr<TestProcess>> innocents;
  innocents.push_back(leaveHelper(others));
  innocents.push_back(desktop_.start({"tail", "-f", script(ours)}));
  innocents.push_back(desktop_.start({"perl", "-e", "sleep 600", script(ours)}));
  const auto leftover = leaveHelper(ours);

  start(ours);
  EXPECT_TRUE(leftover->waitForExit(patience)) << talmo_->log();
  ASSERT_TRUE(waitUntil([this] { return desktop_.processes("pkill").empty(); }, patience));
  for (const auto& innocent : innocents) EXPECT_TRUE(innocent->isRunning());
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(player.waitForCommands(1)) << talmo_->log();
}

}  // namespace
}  // namespace talmo::test
