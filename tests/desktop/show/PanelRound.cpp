#include "tests/desktop/show/PanelRound.h"

#include <optional>

#include "tests/support/TalmoWindows.h"

namespace talmo::test {
namespace {

// How much of the desktop, from its upper right corner on, is in a picture of the panel.
constexpr int pictureWidth = 900;
constexpr int pictureHeight = 588;

// The upper part of the panel, in which nothing dances.
constexpr int quietHeight = 100;

std::optional<PixelArea> panel(ShowDesktop& show) {
  const auto seen = talmoPanel(show.windows(), show.talmo().process().pid());
  return seen ? std::optional(seen->area) : std::nullopt;
}

std::string selection(ShowDesktop& show) {
  return show.settings().value("selectedTargetAppID", "");
}

bool isPinnedTo(ShowDesktop& show, const DesktopPlayer& player) {
  return ShowDesktop::await([&] { return selection(show) == player.id(); });
}

void takePicture(ShowDesktop& show, const std::string& name) {
  const std::optional<PixelArea> area = panel(show);
  if (!area) return;
  show.takePicture(
      name,
      {.x = show.windows().screen().width - pictureWidth,
       .y = 0,
       .width = pictureWidth,
       .height = pictureHeight},
      PixelArea{.x = area->x, .y = area->y, .width = area->width, .height = quietHeight});
}

}  // namespace

void runPanelRound(ShowDesktop& show, const DesktopPlayer& latest, const DesktopPlayer& other,
                   const std::string& title) {
  show.report().chapter("The panel");
  show.report().tell("Nothing is pinned: the keys follow what plays.");
  show.startTalmo("auto");
  show.clickIcon();
  show.check("Click the icon: the panel opens",
             ShowDesktop::await([&] { return panel(show).has_value(); }));
  show.check("It says what plays: \"" + title + "\"",
             ShowDesktop::await([&] { return show.isShown(title); }));
  takePicture(show, "panel.png");

  show.keys().tap("Down");
  show.keys().tap("Return");
  ShowDesktop::await([&] { return selection(show) != "auto"; });
  const bool isOther = selection(show) == other.id();
  const DesktopPlayer& first = isOther ? other : latest;
  const DesktopPlayer& second = isOther ? latest : other;
  show.check("Press Down and Return: the keys are pinned to " + first.displayName(),
             isPinnedTo(show, first));
  show.check("Click the next player: the keys are pinned to " + second.displayName(),
             show.click("push button", second.displayName()) && isPinnedTo(show, second));
  takePicture(show, "panel-pinned.png");
  show.keys().tap("Escape");
  show.check("Press Escape: the panel goes", ShowDesktop::await([&] { return !panel(show); }));
  show.endTalmo();
}

}  // namespace talmo::test
