#include "panel/PanelView.h"

#include <utility>
#include <vector>

#include "panel/AutomationWarningRow.h"
#include "panel/BrowserPrimerRow.h"
#include "panel/FooterRow.h"
#include "panel/NowPlayingCard.h"
#include "panel/PermissionWarningRow.h"
#include "panel/PlayersSection.h"
#include "panel/ViewParts.h"

namespace talmo {

View panelView(const PanelViewModel& model, const NowPlayingState& hero,
               const std::optional<TargetApp>& player, const std::set<std::string>& activeBundleIDs,
               const PanelActions& actions) {
  std::vector<View> rows;
  if (model.permissionWarning.get() != PermissionWarningKind::none) {
    rows.push_back(permissionWarningRow(model.permissionWarning.get()));
  }
  if (const auto& warning = model.automationWarning.get()) {
    rows.push_back(automationWarningRow(*warning));
  }
  rows.push_back(nowPlayingCard(hero, player));
  rows.push_back(playersSection(model, activeBundleIDs, actions.pressRow));
  if (const auto& primer = model.browserPrimer.get()) {
    rows.push_back(browserPrimerRow(
        *primer,
        [allow = actions.allowBrowser, bundleID = primer->bundleID] {
          if (allow) allow(bundleID);
        },
        actions.dismissBrowserPrimer));
  }
  rows.push_back(footerRow(model));
  return verticalView("panel", ViewRole::glass, std::move(rows));
}

}  // namespace talmo
