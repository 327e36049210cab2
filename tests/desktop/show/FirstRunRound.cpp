#include "tests/desktop/show/FirstRunRound.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "tests/support/DesktopPlayer.h"
#include "tests/support/TalmoWindows.h"

namespace talmo::test {
namespace {

// How much of the desktop is in a picture of the window.
constexpr int surroundings = 56;

/// Debian has VLC's desktop entry in a package of its own, with every other interface of VLC's.
void installVlc(const PrivateDesktop& desktop) {
  const std::filesystem::path folder = desktop.dataFolder() / "applications";
  std::filesystem::create_directories(folder);
  std::ofstream entry(folder / "vlc.desktop");
  entry << "[Desktop Entry]\nType=Application\nName=VLC media player\nIcon=vlc\nExec=";
  for (const std::string& argument : DesktopPlayer::vlcCommand(desktop)) {
    entry << '"' << argument << "\" ";
  }
  entry << '\n';
}

std::optional<PixelArea> window(ShowDesktop& show) {
  const auto seen = show.windows().titled(show.talmo().process().pid(), firstRunTitle);
  return seen ? std::optional(seen->area) : std::nullopt;
}

}  // namespace

void runFirstRunRound(ShowDesktop& show) {
  show.report().chapter("The first start");
  show.report().tell(
      "Talmo has never run here, and no other program holds the media keys. It takes them and says "
      "so in a window.");
  installVlc(show.desktop());
  show.check("Start Talmo: its icon comes into the tray", show.startTalmo());
  show.check("Its window comes, and everything is set up: \"Done.\"",
             ShowDesktop::await([&] { return window(show) && show.isShown("Done."); }));
  show.check("It names the player that the keys go to: \"Your keys route here now\"",
             show.isShown("Your keys route here now"));
  if (const std::optional<PixelArea> area = window(show)) {
    show.takePicture("first-run.png", {.x = area->x - surroundings,
                                       .y = area->y - surroundings,
                                       .width = area->width + 2 * surroundings,
                                       .height = area->height + 2 * surroundings});
  }
  show.check("Click \"Start listening\": the window goes",
             show.click("push button", "Start listening") &&
                 ShowDesktop::await([&] { return !window(show); }));
  show.check("Talmo has noted that its first run is over", ShowDesktop::await([&] {
               return show.settings().value("hasCompletedOnboarding", false);
             }));
  show.endTalmo();

  const bool hasIcon = show.startTalmo();
  show.check("Start Talmo once more: its icon comes, and no window", hasIcon && !window(show));
  show.endTalmo();
}

}  // namespace talmo::test
