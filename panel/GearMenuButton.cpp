#include "panel/GearMenuButton.h"

#include "app/Preferences.h"
#include "panel/BrowserPrimer.h"
#include "panel/StatusItemController.h"
#include "panel/ViewParts.h"
#include "platform/Platform.h"

namespace talmo {
namespace {

void restoreBrowserPrimer() {
  Preferences::setBrowserAccessDismissed(false);
  platform().notifications().post(BrowserPrimer::restored);
}

Menu options() {
  Menu menu;
  menu.items.push_back({.title = "About Talmo", .action = &StatusItemController::showAbout});
  if (Preferences::browserAccessDismissed()) {
    menu.items.push_back(
        {.title = "Look for Players in a Browser", .action = &restoreBrowserPrimer});
  }
  return menu;
}

}  // namespace

View gearMenuButton() {
  View button = buttonView("options", ViewRole::iconButton,
                           {symbolView("symbol", ViewRole::symbol, "gearshape")}, {});
  button.menu = &options;
  button.accessibilityLabel = "Options";
  return button;
}

}  // namespace talmo
