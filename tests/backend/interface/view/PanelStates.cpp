#include "tests/backend/interface/view/PanelStates.h"

#include <optional>
#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <set>
#include <utility>
#include <vector>

#include "nowplaying/NowPlayingState.h"
#include "panel/PanelView.h"
#include "panel/PanelViewModel.h"
#include "platform/linux/LinuxWording.h"
#include "platform/simulated/SimulatedApplications.h"
#include "platform/simulated/SimulatedDispatch.h"
#include "players/TargetAppRegistry.h"
#include "tests/backend/interface/view/PaintedWorkspace.h"
#include "tests/backend/interface/view/Pixels.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

const std::string spotify = "spotify";
const std::string vlc = "vlc";
const std::string music = "music";
const std::string youTube = "youtube-web";
const std::string soundCloud = "soundcloud-web";

Image cover() {
  QImage image(256, 256, QImage::Format_ARGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient sky(0, 0, 0, 256);
  sky.setColorAt(0, QColor(38, 28, 92));
  sky.setColorAt(0.6, QColor(214, 82, 110));
  sky.setColorAt(1, QColor(255, 176, 110));
  painter.fillRect(image.rect(), sky);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 226, 170));
  painter.drawEllipse(QPoint(150, 150), 46, 46);
  painter.setBrush(QColor(30, 22, 60));
  painter.drawPolygon(
      QPolygon({{0, 256}, {0, 190}, {70, 150}, {150, 210}, {210, 176}, {256, 214}, {256, 256}}));
  painter.end();
  return imageOf(image);
}

/// What the panel is shown of; the fields are what differs between the states.
struct State {
  std::vector<std::string> players{spotify, vlc, music};
  NowPlayingState hero = NowPlayingTrack{.title = "Midnight in the Harbour",
                                         .artist = "The Paper Lanterns",
                                         .artwork = cover(),
                                         .isPlaying = true};
  std::optional<std::string> player = spotify;
  std::set<std::string> sounding{"com.spotify.client"};
  PermissionWarningKind warning = PermissionWarningKind::none;
  std::optional<AutomationWarning> automation;
  std::optional<BrowserPrimer> offer;
  std::set<std::string> tabs;
  std::optional<std::string> pinned;
  std::optional<std::string> highlighted;
  bool isRoutingOff = false;
};

View panelOf(const State& state, const PanelActions& actions) {
  PanelViewModel model;
  std::vector<TargetApp> players;
  for (const std::string& id : state.players) {
    if (const auto app = TargetAppRegistry::app(id)) players.push_back(*app);
  }
  model.detectedPlayers.set(players);
  model.permissionWarning.set(state.warning);
  model.automationWarning.set(state.automation);
  model.browserPrimer.set(state.offer);
  WebTabDetection::Matches tabs;
  for (const std::string& id : state.tabs) {
    tabs[id] = {.targetID = id,
                .browserBundleID = "com.google.Chrome",
                .browserName = "Google Chrome",
                .url = "",
                .title = ""};
  }
  model.webTabs.set(tabs);
  model.selectedTargetID.set(state.pinned);
  model.keyboardHighlightedRowID.set(state.highlighted);
  model.isRoutingOff.set(state.isRoutingOff);
  const auto player = state.player ? TargetAppRegistry::app(*state.player) : std::nullopt;
  return panelView(model, state.hero, player, state.sounding, actions);
}

State playing(const std::string& title, const std::string& artist) {
  return {.hero = NowPlayingTrack{
              .title = title, .artist = artist, .artwork = std::nullopt, .isPlaying = true}};
}

std::map<std::string, State> states() {
  const AutomationWarning automation{
      .name = "Spotify",
      .explanation =
          "Automation is off, so play/skip won't reach it. Turn Talmo on in Automation settings.",
      .title = "Spotify can't hear Talmo"};
  const BrowserPrimer offer{.bundleID = "com.google.Chrome", .name = "Google Chrome"};
  const NowPlayingTrack paused{.title = "Midnight in the Harbour",
                               .artist = "The Paper Lanterns",
                               .artwork = cover(),
                               .isPlaying = false};
  std::vector<std::string> many;
  for (const TargetApp& app : TargetAppRegistry::all()) many.push_back(app.id);

  std::map<std::string, State> all;
  all["playing"] = {};
  all["paused"] = {.hero = paused, .sounding = {}};
  all["without-artwork"] = playing("Midnight in the Harbour", "The Paper Lanterns");
  all["idle"] = {.hero = NowPlayingIdle{}, .player = std::nullopt, .sounding = {}};
  all["without-information"] = {
      .hero = RunningNoInfo{.displayName = "VLC"}, .player = vlc, .sounding = {}};
  all["needs-grant"] = {.warning = PermissionWarningKind::needsGrant};
  all["needs-reopen"] = {.warning = PermissionWarningKind::needsReopen};
  all["may-need-reopen"] = {.warning = PermissionWarningKind::mayNeedReopen};
  all["automation-warning"] = {.automation = automation};
  all["without-players"] = {
      .players = {}, .hero = NowPlayingIdle{}, .player = std::nullopt, .sounding = {}};
  all["many-players"] = {.players = many, .pinned = many.back(), .highlighted = many.back()};
  all["pinned"] = {.pinned = vlc};
  all["highlighted"] = {.pinned = vlc, .highlighted = vlc};
  all["web-players"] = {.players = {vlc},
                        .hero = paused,
                        .player = youTube,
                        .sounding = {"com.google.Chrome"},
                        .tabs = {youTube},
                        .pinned = soundCloud};
  all["web-player-without-artwork"] = playing("How to tie a bowline", "Knots and Ropes");
  all["web-player-without-artwork"].player = youTube;
  all["web-player-without-artwork"].tabs = {youTube};
  all["offer"] = {.offer = offer};
  all["routing-off"] = {.isRoutingOff = true};
  all["long-title"] = playing("Concerto for two violins, strings and continuo in D minor, BWV 1043",
                              "The Chamber Orchestra of the Northern Harbour Towns");
  all["long-word"] = playing("Donaudampfschifffahrtselektrizitätenhauptbetriebswerk",
                             "Taumatawhakatangihangakoauauotamateaturipukaka");
  all["right-to-left"] = playing("أغنية طويلة جدا عن البحر والسماء والليل الطويل", "فيروز");
  all["ideographs"] = playing("真夜中の港町を歩く猫の長い長い物語とその続き", "東京事変 😀");
  all["all-at-once"] = {.warning = PermissionWarningKind::needsReopen,
                        .automation = automation,
                        .offer = offer,
                        .tabs = {youTube, soundCloud},
                        .pinned = youTube};
  return all;
}

}  // namespace

std::map<std::string, View> panelStates(const PanelActions& actions) {
  SimulatedDispatch dispatch;
  SimulatedApplications applications;
  PaintedWorkspace workspace(applications, dispatch);
  LinuxWording wording;
  const TestPlatform platform(
      {.dispatch = &dispatch, .wording = &wording, .workspace = &workspace});
  for (const TargetApp& app : TargetAppRegistry::all()) {
    applications.install({.bundleID = app.bundleID, .name = app.displayName});
  }
  std::map<std::string, View> views;
  for (const auto& [name, state] : states()) views[name] = panelOf(state, actions);
  return views;
}

}  // namespace talmo::test
