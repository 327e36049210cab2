// The part of the panel's controller that sees the person's clicks and keys while it is open, and
// closes it when they look elsewhere.

#include <array>

#include "panel/PanelController.h"
#include "platform/Platform.h"

namespace talmo {
namespace {

using EventType = InterfaceEvent::Type;

// Virtual key codes (HIToolbox's Events.h).
constexpr std::uint16_t returnKey = 36;
constexpr std::uint16_t tab = 48;
constexpr std::uint16_t space = 49;
constexpr std::uint16_t keypadEnter = 76;
constexpr std::uint16_t downArrow = 125;
constexpr std::uint16_t upArrow = 126;

constexpr std::uint64_t anyModifier = InterfaceEvent::command | InterfaceEvent::option |
                                      InterfaceEvent::control | InterfaceEvent::shift;

constexpr std::uint64_t mousePresses =
    eventMask(EventType::leftMouseDown) | eventMask(EventType::rightMouseDown);

}  // namespace

void PanelController::installMonitors() {
  EventMonitors& monitors = platform().eventMonitors();
  globalMouseMonitor_ =
      monitors.addGlobalMonitor(mousePresses, [weak = weak_from_this()](const InterfaceEvent&) {
        if (const std::shared_ptr<PanelController> self = weak.lock()) self->close();
      });
  localMouseMonitor_ = monitors.addLocalMonitor(
      mousePresses, [weak = weak_from_this()](const InterfaceEvent& event) {
        if (const std::shared_ptr<PanelController> self = weak.lock()) self->mouseDown(event);
        return true;
      });
  keyMonitor_ = monitors.addLocalMonitor(
      eventMask(EventType::keyDown), [weak = weak_from_this()](const InterfaceEvent& event) {
        const std::shared_ptr<PanelController> self = weak.lock();
        return !self || self->keyDown(event);
      });
  Notifications& workspace = platform().workspaceNotifications();
  observe(platform().notifications(), BrowserPrimer::restored,
          &PanelController::refreshBrowserPrimer);
  observe(platform().notifications(), Application::screenParametersDidChange,
          &PanelController::screenParametersChanged);
  observe(workspace, Workspace::activeSpaceDidChange, &PanelController::close);
  observe(workspace, Workspace::didActivateApplication, &PanelController::applicationDidActivate);
}

void PanelController::observe(Notifications& centre, const char* name,
                              void (PanelController::*handler)()) {
  const Notifications::Token token = centre.addObserver(name, [weak = weak_from_this(), handler] {
    if (const std::shared_ptr<PanelController> self = weak.lock()) (self.get()->*handler)();
  });
  observations_.push_back({.centre = centre, .token = token});
}

void PanelController::removeMonitors() {
  for (EventMonitors::Token* const monitor :
       std::array{&globalMouseMonitor_, &localMouseMonitor_, &keyMonitor_}) {
    if (*monitor != 0) platform().eventMonitors().removeMonitor(*monitor);
    *monitor = 0;
  }
  for (const Observation& observation : observations_) {
    observation.centre.removeObserver(observation.token);
  }
  observations_.clear();
}

void PanelController::mouseDown(const InterfaceEvent& event) {
  if (event.window == panel_->window()) return;
  // The status item toggles by itself.
  const std::shared_ptr<StatusButton> button = statusButton_.lock();
  if (button && event.window == button->window()) return;
  close();
}

bool PanelController::keyDown(const InterfaceEvent& event) {
  if (event.keyCode == tab) return false;
  if ((event.modifiers & anyModifier) != 0) return true;
  switch (event.keyCode) {
    case returnKey:
    case space:
    case keypadEnter:
      // A copy, as the row may lose the highlight by being chosen.
      if (const std::optional<std::string> id = viewModel_.keyboardHighlightedRowID.get()) {
        pressRow(*id);
      }
      return false;
    case upArrow:
      viewModel_.moveHighlight(HighlightDirection::up);
      return false;
    case downArrow:
      viewModel_.moveHighlight(HighlightDirection::down);
      return false;
    default:
      return true;
  }
}

void PanelController::pressRow(const std::string& targetID) {
  const bool isPinned = viewModel_.selectedTargetID.get() == targetID;
  commitSelection(isPinned ? std::nullopt : std::optional(targetID));
}

void PanelController::commitSelection(const std::optional<std::string>& targetID) {
  if (targetID != viewModel_.selectedTargetID.get()) {
    platform().application().performHapticFeedback(Application::alignmentFeedback);
  }
  viewModel_.isRoutingOff.set(false);
  viewModel_.selectedTargetID.set(targetID);
  // A copy, as the callback may be replaced while it runs.
  const SelectTarget onSelectTarget = onSelectTarget_;
  if (onSelectTarget) onSelectTarget(targetID);
  refreshAutomationWarning();
}

}  // namespace talmo
