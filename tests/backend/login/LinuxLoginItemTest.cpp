#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <string>
#include <sys/stat.h>
#include <vector>

#include <gmock/gmock.h>

#include "app/LaunchAtLogin.h"
#include "platform/linux/applications/DesktopEntry.h"
#include "platform/linux/applications/DesktopLauncher.h"
#include "platform/linux/login/LinuxLoginItem.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPlatform.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string read(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class LinuxLoginItemTest : public testing::Test {
 protected:
  // Nothing is announced to the person's desktop.
  LinuxLoginItemTest() { ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1); }

  std::filesystem::path autostart() const { return folder_.path() / "autostart"; }
  std::filesystem::path entry() const { return autostart() / "nl.brelm.Talmo.desktop"; }

  /// A program that writes its name and the number of its arguments to a file beside itself.
  std::filesystem::path makeProgram(const std::string& folder, const std::string& name) const {
    const std::filesystem::path program = folder_.path() / folder / name;
    std::filesystem::create_directories(program.parent_path());
    std::ofstream(program) << "#!/bin/sh\ncd \"${0%/*}\" && printf '%s\\n%s' \"$#\" \"$0\" >draft "
                              "&& mv draft started\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return program;
  }

  void write(const std::string& lines) const {
    std::filesystem::create_directories(autostart());
    std::ofstream(entry()) << lines;
  }

  TestPlatform platform_;
  TemporaryFolder folder_;
};

TEST_F(LinuxLoginItemTest, TheEntryIsOneThatEverySessionUnderstands) {
  EXPECT_EQ(LinuxLoginItem("/bin/true", autostart()).registerMainApp(), std::nullopt);
  EXPECT_EQ(read(entry()),
            "[Desktop Entry]\n"
            "Type=Application\n"
            "Name=Talmo\n"
            "Comment=Sends the media keys to the right player\n"
            "TryExec=/bin/true\n"
            "Exec=\"/bin/true\"\n");
}

TEST_F(LinuxLoginItemTest, TheEntryIsAloneInItsFolderAndTheOwners) {
  LinuxLoginItem item("/bin/true", autostart());
  EXPECT_EQ(item.registerMainApp(), std::nullopt);
  struct stat status{};
  ASSERT_EQ(::stat(autostart().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0700U);
  ASSERT_EQ(::stat(entry().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0600U);
  const auto names = [&] {
    const std::filesystem::directory_iterator all(autostart());
    return std::distance(begin(all), end(all));
  };
  EXPECT_EQ(names(), 1);
  EXPECT_EQ(item.unregisterMainApp(), std::nullopt);
  EXPECT_EQ(names(), 0);
}

TEST_F(LinuxLoginItemTest, TheProgramIsTheRunningOneAndTheFolderThePersons) {
  EXPECT_EQ(LinuxLoginItem::runningProgram(), std::filesystem::canonical("/proc/self/exe"));
  ::setenv("XDG_CONFIG_HOME", folder_.path().c_str(), 1);
  LinuxLoginItem item;
  ::unsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(item.registerMainApp(), std::nullopt);
  EXPECT_TRUE(item.isEnabled());
  EXPECT_THAT(read(entry()), HasSubstr("\nTryExec=" + LinuxLoginItem::runningProgram().string()));
}

/// A name and the folder that a program is in.
struct Folder {
  const char* name;
  const char* folder;
};

class ProgramsInAwkwardFolders : public LinuxLoginItemTest,
                                 public testing::WithParamInterface<Folder> {};

TEST_P(ProgramsInAwkwardFolders, AreStartedByTheirValidEntries) {
  const std::filesystem::path program = makeProgram(GetParam().folder, "talmo");
  LinuxLoginItem item(program, autostart());
  EXPECT_EQ(item.registerMainApp(), std::nullopt);
  EXPECT_TRUE(item.isEnabled());

  TestProcess validation({.arguments = {"desktop-file-validate", entry()}});
  EXPECT_EQ(validation.waitForExit(10s), 0);
  EXPECT_EQ(validation.output(), "");

  const auto parsed = DesktopEntry::atURL("file://" + entry().string());
  ASSERT_TRUE(parsed.has_value());
  EXPECT_EQ(launchDesktopEntry(*parsed, {}), std::nullopt);
  const std::filesystem::path started = program.parent_path() / "started";
  ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(started); }));
  EXPECT_EQ(read(started), "0\n" + program.string());
}

INSTANTIATE_TEST_SUITE_P(
    , ProgramsInAwkwardFolders,
    testing::Values(Folder{"Plain", "plain"}, Folder{"Space", " a  b "}, Folder{"Quote", "a\"b\"c"},
                    Folder{"Apostrophe", "it's"}, Folder{"Backslash", R"(a\b\\c\)"},
                    Folder{"Dollar", "$HOME $(id) ${x}"}, Folder{"Backtick", "`id`"},
                    Folder{"Percent", "100% %u %% %"}, Folder{"Equals", "a=b"},
                    Folder{"PercentAndEquals", "a=100%"}, Folder{"Operators", "a; b & c | d > e #"},
                    Folder{"Brackets", "[x] (y) {z} *?~!^"}, Folder{"Dash", "-x --y"},
                    Folder{"OtherLetters", "\u00e9\u65e5\U0001F3B5"},
                    Folder{"Everything", "\" ' \\ $x `y` 50% a=b; \u00e9"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(LinuxLoginItemTest, AnEntryThatWasSwitchedOffIsNotEnabled) {
  const std::string lines = "[Desktop Entry]\nType=Application\nName=Talmo\nExec=/bin/true\n";
  const LinuxLoginItem item("/bin/true", autostart());
  write(lines);
  EXPECT_TRUE(item.isEnabled());
  for (const char* off : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
    write(lines + off);
    EXPECT_FALSE(item.isEnabled()) << off;
  }
  for (const char* on : {"Hidden=false\n", "X-GNOME-Autostart-enabled=true\n"}) {
    write(lines + on);
    EXPECT_TRUE(item.isEnabled()) << on;
  }
}

TEST_F(LinuxLoginItemTest, AnEntryWhoseProgramHasGoneIsNotEnabledAndIsMadeAnew) {
  const std::filesystem::path before = makeProgram("before", "talmo");
  EXPECT_EQ(LinuxLoginItem(before, autostart()).registerMainApp(), std::nullopt);
  const std::filesystem::path after = folder_.path() / "talmo";
  std::filesystem::rename(before, after);
  LinuxLoginItem item(after, autostart());
  EXPECT_FALSE(item.isEnabled());
  EXPECT_EQ(item.registerMainApp(), std::nullopt);
  EXPECT_TRUE(item.isEnabled());
  EXPECT_THAT(read(entry()), HasSubstr("\nTryExec=" + after.string() + "\n"));
}

TEST_F(LinuxLoginItemTest, WhatIsNoEntryIsNotEnabledAndIsReplaced) {
  LinuxLoginItem item("/bin/true", autostart());
  for (const std::string& content :
       {std::string(), std::string("Exec=/bin/true\n"), std::string("[Desktop Entry]\n"),
        std::string("[Desktop Entry]\nType=Link\nName=x\nURL=file:///\n"), std::string(4096, '\0'),
        "[Desktop Entry]\nType=Application\nName=x\nExec=/bin/true\n" +
            std::string(std::size_t{2} << 20U, '#')}) {
    write(content);
    EXPECT_FALSE(item.isEnabled());
    EXPECT_EQ(item.registerMainApp(), std::nullopt);
    EXPECT_TRUE(item.isEnabled());
    EXPECT_EQ(item.unregisterMainApp(), std::nullopt);
  }
}

TEST_F(LinuxLoginItemTest, WhatIsNoFileHoldsNobodyUpAndIsLeftAlone) {
  LinuxLoginItem item("/bin/true", autostart());
  std::filesystem::create_directories(entry());
  EXPECT_FALSE(item.isEnabled());
  EXPECT_NE(item.registerMainApp(), std::nullopt);
  EXPECT_NE(item.unregisterMainApp(), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_directory(entry()));

  std::filesystem::remove(entry());
  ASSERT_EQ(::mkfifo(entry().c_str(), 0600), 0);
  EXPECT_FALSE(item.isEnabled());
  EXPECT_NE(item.registerMainApp(), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_fifo(entry()));
}

TEST_F(LinuxLoginItemTest, ALinkedEntryIsWrittenWhereItIs) {
  std::filesystem::create_directories(autostart());
  std::filesystem::create_symlink("../mine.desktop", entry());
  LinuxLoginItem item("/bin/true", autostart());
  EXPECT_EQ(item.registerMainApp(), std::nullopt);
  EXPECT_TRUE(item.isEnabled());
  EXPECT_THAT(read(folder_.path() / "mine.desktop"), StartsWith("[Desktop Entry]\n"));
  // Removing the link is enough.
  EXPECT_EQ(item.unregisterMainApp(), std::nullopt);
  EXPECT_FALSE(item.isEnabled());
  EXPECT_TRUE(std::filesystem::exists(folder_.path() / "mine.desktop"));
}

TEST_F(LinuxLoginItemTest, AProgramThatNoEntryCanStartIsNotRegistered) {
  for (const std::filesystem::path& program :
       {folder_.path() / "talmo (deleted)", makeProgram("a\xff", "talmo")}) {
    LinuxLoginItem item(program, autostart());
    EXPECT_THAT(item.registerMainApp().value_or(""), StartsWith(program.string() + ": "));
    EXPECT_FALSE(std::filesystem::exists(entry()));
  }
}

TEST_F(LinuxLoginItemTest, TogglingWhereThereCanBeNoFolderIsOneLineAndChangesNothing) {
  // A file in its place stops an administrator too.
  std::ofstream(autostart()) << "in the way";
  LinuxLoginItem item("/bin/true", autostart());
  TestPlatform platform({.loginItem = &item});
  LaunchAtLogin::toggle();
  EXPECT_FALSE(LaunchAtLogin::isEnabled());
  EXPECT_EQ(read(autostart()), "in the way");
  ASSERT_EQ(platform.log().lines().size(), 1U);
  const SimulatedLog::Line line = platform.log().lines()[0];
  EXPECT_EQ(line.level, LogLevel::error);
  EXPECT_EQ(line.category, "launch-at-login");
  EXPECT_THAT(line.message, StartsWith("Launch at login toggle failed: "));
}

TEST_F(LinuxLoginItemTest, TogglingWritesAndRemovesTheEntry) {
  LinuxLoginItem item("/bin/true", autostart());
  TestPlatform platform({.loginItem = &item});
  LaunchAtLogin::toggle();
  EXPECT_TRUE(LaunchAtLogin::isEnabled());
  EXPECT_TRUE(std::filesystem::exists(entry()));
  LaunchAtLogin::toggle();
  EXPECT_FALSE(LaunchAtLogin::isEnabled());
  EXPECT_FALSE(std::filesystem::exists(entry()));
  EXPECT_THAT(platform.log().lines(), testing::IsEmpty());
}

}  // namespace
}  // namespace talmo::test
