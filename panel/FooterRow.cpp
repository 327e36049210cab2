#include "panel/FooterRow.h"

#include <optional>
#include <string>

#include "panel/GearMenuButton.h"
#include "panel/ViewParts.h"
#include "platform/Platform.h"
#include "players/TargetAppRegistry.h"

namespace talmo {

View footerRow(const PanelViewModel& model) {
  const std::optional<std::string>& id = model.selectedTargetID.get();
  const std::optional<TargetApp> pinned = id ? TargetAppRegistry::app(*id) : std::nullopt;
  std::string summary = "Your keys follow whatever you play";
  std::string detail = "Click a player to route them";
  if (pinned) {
    summary = "Your keys go to " + pinned->displayName;
    detail = "Ready when you are";
  } else if (model.isRoutingOff.get()) {
    summary = platform().wording().of("Media keys: macOS default");
  }
  return horizontalView("footer", ViewRole::footer,
                        {verticalView("texts", ViewRole::group,
                                      {textView("summary", ViewRole::label, summary),
                                       textView("detail", ViewRole::detail, detail)}),
                         gearMenuButton()});
}

}  // namespace talmo
