// The panel while real players play.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/backend/interface/view/AccessibleTree.h"
#include "tests/desktop/PanelTest.h"
#include "tests/support/DesktopPlayer.h"
#include "tests/support/TestProcess.h"
#include "tests/support/Tunes.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 30s;
constexpr auto pollInterval = 100ms;

constexpr std::uint32_t red = 0xC02020;
constexpr std::uint32_t blue = 0x2020C0;

/// Lets the programs that are started later, and this one, see the desktop's assistive technology.
struct AssistedDesktop {
  explicit AssistedDesktop(const PrivateDesktop& desktop) {
    for (const char* const name : {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "DISPLAY"}) {
      ::setenv(name, desktop.environment().at(name).c_str(), 1);
    }
    ::setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
  }
};

/// One album with a red cover and one with a blue one, each of a single tune.
class PanelMusic : public PanelTest {
 protected:
  PanelMusic()
      : red_(album("Red", "xc:#C02020")),
        blue_(album("Blue", "xc:#2020C0")),
        player_(DesktopPlayer::startAudacious(desktop_, {red_, blue_})) {}

  bool waitForText(const std::string& text) {
    return waitUntil([&] { return isShown(text); }, patience, pollInterval);
  }

  bool isShown(const std::string& text) {
    for (const AccessibleThing& thing : tree_.things(talmo_->process().pid())) {
      if (thing.name == text) return true;
    }
    return false;
  }

  /// Waits until there is as much of a colour on the panel as an artwork has.
  bool waitForArtwork(std::uint32_t colour) {
    const auto isThere = [&] {
      const std::optional<ScreenWindows::Window> window = panel();
      return window &&
             ScreenPicture::take(desktop_.displayName(), window->area).count(colour) > 2000;
    };
    return waitUntil(isThere, patience, pollInterval);
  }

  /// Where the panel changes within some tenths of a second.
  std::optional<PixelArea> motion() {
    const PixelArea area = panel()->area;
    const ScreenPicture before = ScreenPicture::take(desktop_.displayName(), area);
    std::optional<PixelArea> changed;
    waitUntil(
        [&] {
          changed = before.difference(ScreenPicture::take(desktop_.displayName(), area));
          return changed.has_value();
        },
        500ms, 50ms);
    return changed;
  }

 private:
  std::filesystem::path album(const std::string& name, const std::string& colour) const {
    const std::filesystem::path folder = desktop_.folder() / name;
    const std::filesystem::path tune = writeTunes(folder).front();
    const std::filesystem::path own = folder / (name + ".wav");
    std::filesystem::rename(tune, own);
    const std::string cover = "PNG24:" + (folder / "cover.png").string();
    const auto convert = desktop_.start({"convert", "-size", "300x300", colour, cover});
    if (convert->waitForExit(patience) != 0) throw std::runtime_error(convert->output());
    return own;
  }

  const AssistedDesktop assisted_{desktop_};
  AccessibleTree tree_;
  const std::filesystem::path red_;
  const std::filesystem::path blue_;

 protected:
  const std::unique_ptr<DesktopPlayer> player_;
};

TEST_F(PanelMusic, ShowsTheArtworkAndTheTitleOfThePlayersTrack) {
  startWithTray("auto");
  clickIcon();
  EXPECT_TRUE(waitForPanel());
  EXPECT_TRUE(waitForText("Red")) << talmo_->log();
  EXPECT_TRUE(waitForArtwork(red)) << talmo_->log();
  EXPECT_FALSE(isShown("Blue"));
  player_->mpris().call("Next");
  EXPECT_TRUE(waitForText("Blue")) << talmo_->log();
  EXPECT_TRUE(waitForArtwork(blue)) << talmo_->log();
  EXPECT_FALSE(isShown("Red"));
}

TEST_F(PanelMusic, MovesItsBarsWhileThePlayerSoundsAndNotWhileItIsPaused) {
  startWithTray("auto");
  clickIcon();
  ASSERT_TRUE(waitForPanel());
  ASSERT_TRUE(waitForArtwork(red)) << talmo_->log();
  // Something that is no larger than a row's equalizer, and again and again.
  const auto isDancing = [this] {
    const std::optional<PixelArea> moved = motion();
    return moved && moved->height < 32 && moved->width < 32;
  };
  ASSERT_TRUE(waitUntil(isDancing, patience, pollInterval)) << talmo_->log();
  EXPECT_TRUE(isDancing());
  EXPECT_TRUE(isDancing());

  player_->mpris().call("Pause");
  ASSERT_TRUE(player_->waitForStatus("Paused"));
  // A picture that stays the same for longer than the bars ever rest.
  EXPECT_TRUE(waitUntil([this] { return !motion(); }, patience, pollInterval));
  EXPECT_FALSE(motion());
  EXPECT_FALSE(motion());
}

}  // namespace
}  // namespace talmo::test
