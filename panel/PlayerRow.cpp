#include "panel/PlayerRow.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "panel/Equalizer.h"
#include "panel/RowIcon.h"
#include "panel/ViewParts.h"
#include "support/BundleIdentifier.h"

namespace talmo {
namespace {

/// The tab of a web player; nothing (a null pointer) for any other, or when none is known.
const WebTabMatch* tabOf(const TargetApp& app, const PanelViewModel& model) {
  const auto found = model.webTabs.get().find(app.id);
  return app.isWeb() && found != model.webTabs.get().end() ? &found->second : nullptr;
}

bool sounds(const std::string& bundleID, const std::set<std::string>& activeBundleIDs) {
  return std::ranges::any_of(activeBundleIDs, [&bundleID](const std::string& active) {
    return belongsToApplication(active, bundleID);
  });
}

}  // namespace

View playerRow(const TargetApp& app, const PanelViewModel& model,
               const std::set<std::string>& activeBundleIDs,
               const std::function<void(const std::string&)>& press) {
  const bool isPinned = model.selectedTargetID.get() == app.id;
  const WebTabMatch* const tab = tabOf(app, model);

  std::vector<View> texts{textView("name", ViewRole::label, app.displayName)};
  if (tab != nullptr) {
    texts.push_back(textView("browser", ViewRole::detail, "Playing in " + tab->browserName));
  }
  std::vector<View> parts{rowIcon(app), verticalView("texts", ViewRole::group, std::move(texts))};
  if (sounds(tab != nullptr ? tab->browserBundleID : app.bundleID, activeBundleIDs)) {
    parts.push_back(equalizer(true));
  }
  if (isPinned) parts.push_back(symbolView("mark", ViewRole::mark, "pin.fill"));

  View row = buttonView(app.id, ViewRole::row, std::move(parts), [press, id = app.id] {
    if (press) press(id);
  });
  row.isOn = isPinned;
  row.isHighlighted = model.keyboardHighlightedRowID.get() == app.id;
  row.accessibilityLabel = app.displayName;
  row.accessibilityHint = isPinned ? "Media keys are pinned to " + app.displayName +
                                         ". Click to follow what's playing instead."
                                   : "Pin media keys to " + app.displayName;
  return row;
}

}  // namespace talmo
