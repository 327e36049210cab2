#include "tests/desktop/show/QuitRound.h"

#include <string>

#include <nlohmann/json.hpp>

#include "tests/support/TalmoWindows.h"

namespace talmo::test {
namespace {

/// How many processes of Talmo there are, its helpers included.
std::size_t processCount(const ShowDesktop& show) {
  std::size_t count = 0;
  for (const char* const program : {"osascript", "perl", "pkill", "talmo"}) {
    count += show.desktop().processes(program).size();
  }
  return count;
}

}  // namespace

void runQuitRound(ShowDesktop& show) {
  show.report().chapter("Quitting");
  show.startTalmo("audacious");
  const pid_t talmo = show.talmo().process().pid();
  show.clickIcon();
  show.check("While the panel is open, the helper that watches the players runs",
             ShowDesktop::await([&] { return !show.desktop().processes("perl").empty(); }));
  show.clickIcon(MousePresser::right);
  std::optional<ScreenWindows::Window> menu;
  ShowDesktop::await([&] {
    menu = talmoMenu(show.windows(), talmo);
    return menu.has_value();
  });
  // Quit is the last of the menu.
  if (menu) {
    show.mouse().click(menu->area.middleX(), menu->area.bottom() - menu->area.height / 4);
  }
  show.awaitEnd("Click Quit in the icon's menu: Talmo ends");
  show.check("Nothing of it is left running, the helper included",
             ShowDesktop::await([&] { return processCount(show) == 0; }));
  const nlohmann::json settings = show.settings();
  show.check("Its settings are whole",
             settings.value("hasCompletedOnboarding", false) &&
                 settings.value("selectedTargetAppID", "") == "audacious");
  show.windowGets(nextKey);
}

}  // namespace talmo::test
