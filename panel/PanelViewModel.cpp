#include "panel/PanelViewModel.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "players/TargetAppRegistry.h"

namespace talmo {
namespace {

template <class Value>
void observe(Published<Value>& field, const std::function<void()>& callback) {
  field.observe([&field, callback](const Value& next) {
    if (next != field.get()) callback();
  });
}

}  // namespace

std::vector<TargetApp> PanelViewModel::visibleWebApps() const {
  std::vector<TargetApp> visible;
  std::ranges::copy_if(TargetAppRegistry::webApps(), std::back_inserter(visible),
                       [this](const TargetApp& app) {
                         return webTabs.get().contains(app.id) || selectedTargetID.get() == app.id;
                       });
  return visible;
}

std::vector<std::string> PanelViewModel::navigableRowIDs() const {
  std::vector<std::string> ids;
  std::ranges::transform(detectedPlayers.get(), std::back_inserter(ids), &TargetApp::id);
  std::ranges::transform(visibleWebApps(), std::back_inserter(ids), &TargetApp::id);
  return ids;
}

void PanelViewModel::moveHighlight(HighlightDirection direction) {
  std::vector<std::string> ids = navigableRowIDs();
  if (ids.empty()) return;
  const bool isDown = direction == HighlightDirection::down;
  const std::optional<std::string>& current = keyboardHighlightedRowID.get();
  const auto found = current ? std::ranges::find(ids, *current) : ids.end();
  std::size_t next = isDown ? 0 : ids.size() - 1;
  if (found != ids.end()) {
    const auto index = static_cast<std::size_t>(found - ids.begin());
    next = (index + (isDown ? 1 : ids.size() - 1)) % ids.size();
  }
  keyboardHighlightedRowID.set(std::move(ids[next]));
}

void PanelViewModel::observe(const std::function<void()>& callback) {
  talmo::observe(detectedPlayers, callback);
  talmo::observe(isPanelOpen, callback);
  talmo::observe(permissionWarning, callback);
  talmo::observe(selectedTargetID, callback);
  talmo::observe(automationWarning, callback);
  talmo::observe(browserPrimer, callback);
  talmo::observe(webTabs, callback);
  talmo::observe(keyboardHighlightedRowID, callback);
  talmo::observe(isRoutingOff, callback);
}

}  // namespace talmo
