#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "panel/AutomationWarning.h"
#include "panel/BrowserPrimer.h"
#include "panel/HighlightDirection.h"
#include "panel/PermissionWarningKind.h"
#include "players/TargetApp.h"
#include "support/Published.h"
#include "web/WebTabDetection.h"

namespace talmo {

/// The state behind the panel: its controller writes it, its views read it. Belongs to the main
/// thread and asks the system nothing.
struct PanelViewModel {
  PanelViewModel() = default;
  PanelViewModel(const PanelViewModel&) = delete;
  PanelViewModel& operator=(const PanelViewModel&) = delete;

  /// The installed native players, in the order in which they are listed.
  Published<std::vector<TargetApp>> detectedPlayers;
  Published<bool> isPanelOpen;
  Published<PermissionWarningKind> permissionWarning;
  /// The target that the media keys are pinned to; nothing when they follow what is playing.
  Published<std::optional<std::string>> selectedTargetID;
  Published<std::optional<AutomationWarning>> automationWarning;
  Published<std::optional<BrowserPrimer>> browserPrimer;
  /// The tab that was found for a web player, by its id.
  Published<WebTabDetection::Matches> webTabs;
  Published<std::optional<std::string>> keyboardHighlightedRowID;
  /// Nothing is pinned, and the media keys are left to the system instead.
  Published<bool> isRoutingOff;

  /// The web players to list: those with a known tab, and the pinned one.
  std::vector<TargetApp> visibleWebApps() const;

  /// The rows that the keyboard can move through, from top to bottom.
  std::vector<std::string> navigableRowIDs() const;

  /// Highlights the next row in that direction, around the ends; the first one in that direction
  /// when none is highlighted or the highlighted one has gone.
  void moveHighlight(HighlightDirection direction);

  /// From now on `callback` is called whenever a field is about to get another value.
  void observe(const std::function<void()>& callback);
};

}  // namespace talmo
