#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "nowplaying/AudioActivity.h"
#include "nowplaying/NowPlaying.h"
#include "panel/PanelActions.h"
#include "panel/PanelViewModel.h"
#include "platform/EventMonitors.h"
#include "platform/InterfaceEvent.h"
#include "platform/Notifications.h"
#include "platform/Panel.h"
#include "platform/StatusButton.h"
#include "web/WebTabDetection.h"

namespace talmo {

/// Owns the panel below the status item: shows and hides it, keeps what it shows up to date while
/// it is open, closes it when the person looks elsewhere, and has the keys move its highlight.
/// While it is closed, nothing is polled and nothing is drawn.
///
/// Main thread only, which it never makes wait.
class PanelController : public std::enable_shared_from_this<PanelController> {
 public:
  /// Gets the target that was chosen; nothing to follow what is playing.
  using SelectTarget = std::function<void(const std::optional<std::string>&)>;

  static std::shared_ptr<PanelController> make();

  ~PanelController();
  PanelController(const PanelController&) = delete;
  PanelController& operator=(const PanelController&) = delete;

  /// `callback` is called when the person picks a row.
  void setOnSelectTarget(SelectTarget callback) { onSelectTarget_ = std::move(callback); }

  void setPermissionState(bool trusted, bool tapRunning, bool trustMayBeStale);

  /// Shows that target as the pinned one. The auto sentinel is no target: the keys follow what is
  /// playing. Nothing at all means that routing is off.
  void setSelection(const std::optional<std::string>& targetID);

  /// Whether the panel is on screen.
  bool isVisible() const { return panel_ && panel_->isVisible(); }

  /// Opens the panel at the status item's button, or closes it.
  void toggle(const std::shared_ptr<StatusButton>& relativeTo);
  void open(const std::shared_ptr<StatusButton>& relativeTo);
  void close();

  /// Pins the target, or, with nothing, follows what is playing, and says so to the owner.
  void commitSelection(const std::optional<std::string>& targetID);

  const PanelViewModel& viewModel() const { return viewModel_; }
  PermissionWarningKind permissionWarningForTesting() const {
    return viewModel_.permissionWarning.get();
  }

  /// What the panel's card shows.
  NowPlaying& nowPlaying() { return *nowPlaying_; }

 private:
  struct Observation {
    Notifications& centre;
    Notifications::Token token = 0;
  };

  PanelController();

  void connect();
  void makePanel();
  void setNeedsRender();
  void render();
  void applyFrame(Size size);
  void place(bool isAnimated);
  void screenParametersChanged();

  void installMonitors();
  void removeMonitors();
  void observe(Notifications& centre, const char* name, void (PanelController::*handler)());
  bool keyDown(const InterfaceEvent& event);
  void mouseDown(const InterfaceEvent& event);
  void pressRow(const std::string& targetID);

  // Players, warnings and offers (PanelOffers.cpp).
  void refreshDetectedPlayers();
  void refreshAutomationWarning();
  void refreshBrowserPrimer();
  void requestBrowserAccess(const std::string& bundleID);
  void dismissBrowserPrimer();
  void showAutomationWarning(const std::string& targetID, std::optional<AutomationWarning> warning);
  void showBrowserPrimer(std::optional<BrowserPrimer> candidate);
  void webTabsDidChange(const WebTabDetection::Matches& webTabs);
  void applicationDidActivate();
  void browserDidActivate(const std::string& bundleID);

  SelectTarget onSelectTarget_;
  PanelViewModel viewModel_;
  const std::shared_ptr<NowPlaying> nowPlaying_;
  const std::shared_ptr<AudioActivity> audioActivity_;
  const std::shared_ptr<WebTabDetection> webTabDetection_;
  EventMonitors::Token keyMonitor_ = 0;
  EventMonitors::Token localMouseMonitor_ = 0;
  EventMonitors::Token globalMouseMonitor_ = 0;
  std::vector<Observation> observations_;
  std::weak_ptr<StatusButton> statusButton_;
  std::unique_ptr<Panel> panel_;
  PanelActions actions_;
  /// The ideal size of the panel's content.
  Size contentSize_;
  /// Whether the panel is to be rendered by an item of the main queue.
  bool needsRender_ = false;
  /// Counts the refreshes: only the latest one's answer is shown.
  std::uint64_t lastPrimerRefresh_ = 0;
};

}  // namespace talmo
