#include "panel/PlayersSection.h"

#include <utility>
#include <vector>

#include "panel/PlayerRow.h"
#include "panel/ViewParts.h"

namespace talmo {

View playersSection(const PanelViewModel& model, const std::set<std::string>& activeBundleIDs,
                    const std::function<void(const std::string&)>& press) {
  std::vector<TargetApp> players = model.detectedPlayers.get();
  for (TargetApp& app : model.visibleWebApps()) players.push_back(std::move(app));

  std::vector<View> parts{textView("header", ViewRole::header, "PLAYERS")};
  for (const TargetApp& app : players) {
    parts.push_back(playerRow(app, model, activeBundleIDs, press));
  }
  if (players.empty()) {
    parts.push_back(
        horizontalView("empty", ViewRole::group,
                       {symbolView("symbol", ViewRole::symbol, "app.dashed"),
                        textView("text", ViewRole::detail, "Install one and Talmo finds it")}));
  }
  return verticalView("players", ViewRole::section, std::move(parts));
}

}  // namespace talmo
