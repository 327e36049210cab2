// The surroundings of the tests of what is shown as playing.

#include <absl/strings/escaping.h>
#include <algorithm>
#include <variant>

#include <nlohmann/json.hpp>

#include "nowplaying/Catalogue.h"
#include "permissions/AutomationPermission.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/NowPlayingTest.h"

namespace talmo::test {

NowPlayingTest::NowPlayingTest() {
  browsers().setStream(Script().liveOn());
  nowPlaying_ = NowPlaying::make();
  nowPlaying_->setTargetProvider([this] { return target_; });
  nowPlaying_->state().observe(
      [this](const NowPlayingState& state) { history_.push_back(text(state)); });
}

NowPlayingTest::~NowPlayingTest() = default;

void NowPlayingTest::setTarget(const std::string& id) {
  target_ = TargetAppRegistry::app(id);
  ASSERT_TRUE(target_.has_value()) << id;
}

ProcessIdentifier NowPlayingTest::launch(const std::string& bundleID) {
  machine().applications().install({bundleID, bundleID});
  return machine().applications().launch(bundleID);
}

void NowPlayingTest::start() {
  nowPlaying_->startPolling();
}

void NowPlayingTest::startWarm() {
  start();
  pass(std::chrono::milliseconds(1250));
}

void NowPlayingTest::stream(const std::string& owner, const std::string& title,
                            const std::string& more) {
  machine().childProcesses().write("stream", R"({"payload":{"bundleIdentifier":")" + owner +
                                                 R"(","playing":true,"title":")" + title +
                                                 "\",\"artist\":\"Artist\"" + more + "}}\n");
}

void NowPlayingTest::streamNothing() {
  machine().childProcesses().write("stream", "{\"payload\":{}}\n");
}

void NowPlayingTest::setSystem(ProcessIdentifier owner, const std::string& title, bool isPlaying) {
  machine().mediaRemote().setProcess(owner);
  machine().mediaRemote().setInfo(
      MediaRemoteInfo{{"kMRMediaRemoteNowPlayingInfoTitle", title},
                      {"kMRMediaRemoteNowPlayingInfoPlaybackRate", isPlaying ? 1.0 : 0.0}});
}

void NowPlayingTest::pass(Duration time) {
  auto isOver = std::make_shared<bool>(false);
  machine().dispatch().mainQueue().asyncAfter(time, [isOver] { *isOver = true; });
  ASSERT_TRUE(runUntil([isOver] { return *isOver; }));
}

void NowPlayingTest::poke() {
  machine().notifications().post(
      machine().mediaRemote().stringConstant(SimulatedMediaRemote::infoConstant).value());
}

void NowPlayingTest::pokeTidal() {
  const int before = machine().accessibility().questions();
  poke();
  ASSERT_TRUE(runUntil([&] { return machine().accessibility().questions() > before; }));
}

void NowPlayingTest::consent(const std::string& bundleID, std::int32_t status) {
  machine().appleEvents().setConsent(bundleID, status);
  bool isKnown = false;
  AutomationPermission::refreshStatus(bundleID, [&](AutomationStatus) { isKnown = true; });
  ASSERT_TRUE(runUntil([&] { return isKnown; }));
}

void NowPlayingTest::setCatalogue(const std::vector<Entry>& entries) {
  machine().network().setReplies([entries](const std::string& url) {
    for (const Entry& entry : entries) {
      if (url == artworkURL(entry.title)) {
        return Reply{.result = {.status = 200, .body = artwork(entry.width)}};
      }
      if (url == searchURL(entry.title)) {
        nlohmann::json found{{"trackName", entry.title}, {"artistName", "Artist"}};
        found["artworkUrl100"] = artworkURL(entry.title);
        nlohmann::json answer;
        answer["results"].push_back(found);
        return Reply{.result = {.status = 200, .body = answer.dump()}, .delay = entry.delay};
      }
    }
    return Reply{.result = {.status = 404, .body = "not found"}};
  });
}

std::string NowPlayingTest::artworkURL(const std::string& title) {
  return "https://artworks.test/" + title + ".jpg";
}

std::string NowPlayingTest::searchURL(const std::string& title) {
  return Catalogue::searchURL(title, "Artist");
}

std::string NowPlayingTest::text(const NowPlayingState& state) {
  if (const auto* running = std::get_if<RunningNoInfo>(&state)) {
    return "[" + running->displayName + "]";
  }
  const auto* track = std::get_if<NowPlayingTrack>(&state);
  if (track == nullptr) return "idle";
  return track->title + (track->artwork ? " " + std::to_string(track->artwork->width) : "") +
         (track->isPlaying ? "" : " (paused)");
}

std::vector<std::string> NowPlayingTest::tracks() const {
  std::vector<std::string> found;
  for (const std::string& shown : history_) {
    if (shown != "idle" && !shown.starts_with('[')) found.push_back(shown);
  }
  return found;
}

bool NowPlayingTest::logs(const std::string& line) {
  const std::vector<std::string> lines = log();
  return std::ranges::find(lines, line) != lines.end();
}

std::string NowPlayingTest::artwork(int width) {
  return SimulatedImageDecoder::encode(width, 1, "cover");
}

}  // namespace talmo::test
