#pragma once

#include <string_view>
#include <vector>

#include "players/MusicAppController.h"
#include "web/WebCommand.h"
#include "web/WebPlayerTarget.h"
#include "web/WebTabMatch.h"

namespace talmo {

/// Drives a web player in its browser tab, by the first way that works: through the media session
/// when that is this tab's, by JavaScript in the tab, by a key stroke to the tab brought to the
/// front; without a tab it opens the player's page. A command blocks its caller for some seconds at
/// the most.
class WebPlayerController : public MusicAppController {
 public:
  WebPlayerController(TargetApp targetApp, WebPlayerTarget target);

  const TargetApp& targetApp() const override { return targetApp_; }
  void playPause() override;
  void nextTrack() override;
  void previousTrack() override;

  /// Whether a script failed as the browser does not let scripts run JavaScript.
  static bool isJSBlocked(std::string_view standardError);

 private:
  void handle(WebCommand command);

  // With a tab; each says whether the command is done.
  void drive(WebCommand command, const WebTabMatch& tab);
  bool sendToRecentOwner(WebCommand command, const WebTabMatch& tab,
                         const std::vector<WebTabMatch>& siblings);
  bool sendToOwner(WebCommand command, const WebTabMatch& tab,
                   const std::vector<WebTabMatch>& siblings);
  bool runJavaScript(WebCommand command, const WebTabMatch& tab);
  bool pressKey(const WebTabMatch& tab);

  // Without a tab.
  bool sendUnconfirmed(WebCommand command);
  void open(WebCommand command);

  const TargetApp targetApp_;
  const WebPlayerTarget target_;
  // Said once: it would come with every key.
  bool loggedJSBlocked_ = false;
};

}  // namespace talmo
