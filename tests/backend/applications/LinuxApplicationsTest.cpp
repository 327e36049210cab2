#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <unistd.h>

#include "platform/linux/applications/LinuxApplications.h"
#include "tests/backend/applications/PlayersTest.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

constexpr std::uint64_t command = 0x100000;
constexpr std::uint64_t control = 0x40000;

TEST(LinuxApplications, TheLocalPlayersAreTheOnesThatOnlyLinuxHas) {
  const std::vector<LocalPlayer> expected{
      {"rhythmbox", "Rhythmbox", "org.gnome.Rhythmbox3"},
      {"strawberry", "Strawberry", "org.strawberrymusicplayer.strawberry"},
      {"audacious", "Audacious", "org.atheme.audacious"},
      {"mpv", "mpv", "io.mpv.Mpv"},
      {"clementine", "Clementine", "org.clementine_player.Clementine"}};
  EXPECT_EQ(LinuxApplications::localPlayers(), expected);
}

TEST(LinuxApplications, NoTwoRowsClaimTheSame) {
  std::set<std::string_view> claims;
  for (const LinuxApplication& row : LinuxApplications::all()) {
    EXPECT_TRUE(claims.insert(row.bundleID).second) << row.bundleID;
    EXPECT_EQ(LinuxApplications::withBundleID(row.bundleID), &row);
    EXPECT_FALSE(row.displayName.empty());
    EXPECT_FALSE(row.desktopIDs.empty());
    for (const std::string_view windowClass : row.windowClasses) {
      EXPECT_EQ(LinuxApplications::withWindowClass(windowClass), &row) << windowClass;
    }
    for (const std::string_view executable : row.executables) {
      EXPECT_EQ(LinuxApplications::withExecutable(executable), &row) << executable;
    }
  }
  std::set<std::string_view> names;
  for (const LinuxApplication& row : LinuxApplications::all()) {
    for (const std::string_view name : row.playerNames) {
      EXPECT_TRUE(names.insert(name).second) << name;
    }
  }
}

TEST(LinuxApplications, WindowClassesAreComparedInAnyCase) {
  EXPECT_EQ(LinuxApplications::withWindowClass("VLC"),
            LinuxApplications::withBundleID("org.videolan.vlc"));
  EXPECT_EQ(LinuxApplications::withWindowClass("Google-chrome"),
            LinuxApplications::withBundleID("com.google.Chrome"));
  EXPECT_EQ(LinuxApplications::withWindowClass(""), nullptr);
}

class StrokeExceptionTest : public PlayersTest {
 protected:
  static std::optional<std::uint32_t> keysym(std::uint16_t keyCode, std::uint64_t flags,
                                             ProcessIdentifier process) {
    const auto down = LinuxApplications::strokeException(
        {.keyCode = keyCode, .isKeyDown = true, .flags = flags}, process);
    const auto up = LinuxApplications::strokeException(
        {.keyCode = keyCode, .isKeyDown = false, .flags = flags}, process);
    EXPECT_EQ(down, up);
    return down;
  }

  /// The three of VLC and nothing else.
  static void expectVlc(ProcessIdentifier process) {
    EXPECT_EQ(keysym(49, 0, process), 0x1008FF14);
    EXPECT_EQ(keysym(124, command, process), 0x1008FF17);
    EXPECT_EQ(keysym(123, command, process), 0x1008FF16);
    EXPECT_EQ(keysym(49, command, process), std::nullopt);
    EXPECT_EQ(keysym(124, 0, process), std::nullopt);
    EXPECT_EQ(keysym(124, control, process), std::nullopt);
    EXPECT_EQ(keysym(45, 0, process), std::nullopt);
  }
};

TEST_F(StrokeExceptionTest, VlcIsKnownByItsProgram) {
  const std::filesystem::path program = PrivateData::scratch() / "vlc";
  std::filesystem::copy_file("/usr/bin/sleep", program);
  const TestProcess vlc({.arguments = {program, "60"}});
  const std::string link = "/proc/" + std::to_string(vlc.pid()) + "/exe";
  std::error_code ignored;
  ASSERT_TRUE(waitUntil([&] { return std::filesystem::read_symlink(link, ignored) == program; }));
  expectVlc(vlc.pid());
}

TEST_F(StrokeExceptionTest, VlcIsKnownByItsPlaceOnTheBus) {
  const FakePlayerProcess first("vlc");
  const FakePlayerProcess second("vlc.instance42");
  expectVlc(first.pid());
  expectVlc(second.pid());
}

TEST_F(StrokeExceptionTest, OthersTakeEveryKeyAsItIs) {
  const FakePlayerProcess vlc("vlc");
  const FakePlayerProcess other("spotify");
  EXPECT_EQ(keysym(49, 0, other.pid()), std::nullopt);
  EXPECT_EQ(keysym(124, command, other.pid()), std::nullopt);
  EXPECT_EQ(keysym(49, 0, ::getpid()), std::nullopt);
}

TEST_F(StrokeExceptionTest, WithoutABusThereIsNoExceptionForAnUnknownProgram) {
  bus().daemon().end();
  EXPECT_EQ(keysym(49, 0, ::getpid()), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
