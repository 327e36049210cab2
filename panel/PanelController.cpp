#include "panel/PanelController.h"

#include <chrono>
#include <utility>

#include "app/Preferences.h"
#include "panel/PanelPlacement.h"
#include "panel/PanelView.h"
#include "permissions/AutomationPermission.h"
#include "platform/Platform.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

// Tabs that were seen longer ago are not listed before they have been seen again.
constexpr Duration freshTabs = 20s;

PermissionWarningKind warningKind(bool trusted, bool tapRunning, bool trustMayBeStale) {
  if (trusted) return tapRunning ? PermissionWarningKind::none : PermissionWarningKind::needsReopen;
  return trustMayBeStale ? PermissionWarningKind::mayNeedReopen : PermissionWarningKind::needsGrant;
}

}  // namespace

std::shared_ptr<PanelController> PanelController::make() {
  std::shared_ptr<PanelController> controller(new PanelController);
  controller->connect();
  return controller;
}

PanelController::PanelController()
    : nowPlaying_(NowPlaying::make()),
      audioActivity_(AudioActivity::make()),
      webTabDetection_(WebTabDetection::make()) {}

PanelController::~PanelController() {
  close();
}

void PanelController::connect() {
  const std::function<void()> changed = [weak = weak_from_this()] {
    if (const std::shared_ptr<PanelController> self = weak.lock()) self->setNeedsRender();
  };
  viewModel_.observe(changed);
  nowPlaying_->state().observe([changed](const NowPlayingState&) { changed(); });
  audioActivity_->activeBundleIDs().observe([changed](const auto&) { changed(); });
  webTabDetection_->setOnChange([weak = weak_from_this()](const WebTabDetection::Matches& tabs) {
    if (const std::shared_ptr<PanelController> self = weak.lock()) self->webTabsDidChange(tabs);
  });
  actions_.pressRow = [weak = weak_from_this()](const std::string& id) {
    if (const std::shared_ptr<PanelController> self = weak.lock()) self->pressRow(id);
  };
  actions_.allowBrowser = [weak = weak_from_this()](const std::string& bundleID) {
    if (const std::shared_ptr<PanelController> self = weak.lock()) {
      self->requestBrowserAccess(bundleID);
    }
  };
  actions_.dismissBrowserPrimer = [weak = weak_from_this()] {
    if (const std::shared_ptr<PanelController> self = weak.lock()) self->dismissBrowserPrimer();
  };
}

void PanelController::setPermissionState(bool trusted, bool tapRunning, bool trustMayBeStale) {
  viewModel_.permissionWarning.set(warningKind(trusted, tapRunning, trustMayBeStale));
}

void PanelController::setSelection(const std::optional<std::string>& targetID) {
  viewModel_.isRoutingOff.set(!targetID);
  viewModel_.selectedTargetID.set(targetID == Preferences::autoSentinel ? std::nullopt : targetID);
  nowPlaying_->pollNow();
  refreshAutomationWarning();
}

void PanelController::toggle(const std::shared_ptr<StatusButton>& relativeTo) {
  if (viewModel_.isPanelOpen.get()) {
    close();
  } else {
    open(relativeTo);
  }
}

void PanelController::open(const std::shared_ptr<StatusButton>& relativeTo) {
  if (viewModel_.isPanelOpen.get()) return;
  statusButton_ = relativeTo;
  if (!panel_) makePanel();
  viewModel_.isPanelOpen.set(true);
  nowPlaying_->startPolling();
  audioActivity_->startPolling();
  webTabDetection_->start();
  viewModel_.webTabs.set(WebTabDetection::cachedMatches(freshTabs));
  refreshDetectedPlayers();
  AutomationPermission::invalidateAll();
  refreshAutomationWarning();
  refreshBrowserPrimer();
  viewModel_.keyboardHighlightedRowID.set(std::nullopt);
  render();
  place(false);
  panel_->makeKeyAndOrderFront();
  installMonitors();
}

void PanelController::close() {
  if (!viewModel_.isPanelOpen.get()) return;
  // First of all: a panel that goes resigns the keys, which closes it.
  viewModel_.isPanelOpen.set(false);
  removeMonitors();
  panel_->orderOut();
  nowPlaying_->stopPolling();
  audioActivity_->stopPolling();
  webTabDetection_->stop();
}

void PanelController::makePanel() {
  panel_ = platform().panels().makePanel();
  panel_->setOnSizeChange([weak = weak_from_this()](Size size) {
    if (const std::shared_ptr<PanelController> self = weak.lock()) self->applyFrame(size);
  });
  const std::function<void()> closing = [weak = weak_from_this()] {
    if (const std::shared_ptr<PanelController> self = weak.lock()) self->close();
  };
  panel_->setOnCancel(closing);
  panel_->setOnResignKey(closing);
}

void PanelController::setNeedsRender() {
  // Observers are told before a value changes, and several may change together.
  if (!viewModel_.isPanelOpen.get() || std::exchange(needsRender_, true)) return;
  platform().dispatch().mainQueue().async([weak = weak_from_this()] {
    const std::shared_ptr<PanelController> self = weak.lock();
    if (!self || !std::exchange(self->needsRender_, false)) return;
    if (self->viewModel_.isPanelOpen.get()) self->render();
  });
}

void PanelController::render() {
  needsRender_ = false;
  panel_->setContent(panelView(viewModel_, nowPlaying_->state().get(), nowPlaying_->target(),
                               audioActivity_->activeBundleIDs().get(), actions_));
}

void PanelController::applyFrame(Size size) {
  contentSize_ = size;
  place(panel_->isVisible());
}

void PanelController::place(bool isAnimated) {
  const std::shared_ptr<StatusButton> button = statusButton_.lock();
  if (!button) return;
  panel_->setFrame(panelFrame(*button, contentSize_), isAnimated);
  panel_->invalidateShadow();
}

void PanelController::screenParametersChanged() {
  if (isVisible()) place(false);
}

}  // namespace talmo
