#include "onboarding/SettingsToggleMock.h"

#include "panel/ViewParts.h"

namespace talmo {

View settingsToggleMock(bool isOn) {
  View toggle;
  toggle.identity = "toggle";
  toggle.kind = ViewKind::toggle;
  toggle.role = ViewRole::toggle;
  toggle.isOn = isOn;
  toggle.accessibilityLabel = isOn ? "The switch, which is on" : "The switch to turn on";
  return horizontalView("mock", ViewRole::card,
                        {assetView("icon", ViewRole::icon, "AppIcon"),
                         textView("name", ViewRole::label, "Talmo"), std::move(toggle)});
}

}  // namespace talmo
