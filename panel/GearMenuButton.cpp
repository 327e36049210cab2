#include "panel/GearMenuButton.h"

#include "app/LaunchAtLogin.h"
#include "app/Preferences.h"
#include "app/UpdaterController.h"
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

void checkForUpdates() {
  UpdaterController::shared().checkForUpdates();
}

void toggleAutomaticUpdates() {
  UpdaterController& updater = UpdaterController::shared();
  updater.setAutomaticallyChecksForUpdates(!updater.automaticallyChecksForUpdates());
}

Menu options() {
  const UpdaterController& updater = UpdaterController::shared();
  Menu menu;
  menu.items.push_back({.title = "About Talmo", .action = &StatusItemController::showAbout});
  if (updater.isAvailable()) {
    menu.items.push_back({.title = "Check for Updates\u2026", .action = &checkForUpdates});
    menu.items.push_back({.title = "Update Automatically",
                          .action = &toggleAutomaticUpdates,
                          .isChecked = updater.automaticallyChecksForUpdates()});
  }
  if (Preferences::browserAccessDismissed()) {
    menu.items.push_back(
        {.title = "Look for Players in a Browser", .action = &restoreBrowserPrimer});
  }
  menu.items.push_back({.title = "Launch at Login",
                        .action = &LaunchAtLogin::toggle,
                        .isChecked = LaunchAtLogin::isEnabled()});
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
