#include "panel/NowPlayingCard.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "panel/PlaybackChip.h"
#include "panel/RowIcon.h"
#include "panel/ViewParts.h"

namespace talmo {
namespace {

View playerIcon(const std::optional<TargetApp>& player) {
  if (player) return rowIcon(*player, ViewRole::artwork);
  return symbolView("icon", ViewRole::artwork, "music.note");
}

View card(View picture, std::string title, std::string detail, bool isPlaying) {
  std::vector<View> texts{textView("title", ViewRole::title, std::move(title))};
  if (!detail.empty()) texts.push_back(textView("detail", ViewRole::detail, std::move(detail)));
  // Below the texts, as beside them it would take the room of a title's last words.
  if (isPlaying) texts.push_back(playbackChip());
  return horizontalView(
      "now-playing", ViewRole::card,
      {std::move(picture), verticalView("texts", ViewRole::group, std::move(texts))});
}

}  // namespace

View nowPlayingCard(const NowPlayingState& state, const std::optional<TargetApp>& player) {
  if (const auto* const track = std::get_if<NowPlayingTrack>(&state)) {
    return card(track->artwork ? pictureView("artwork", ViewRole::artwork, *track->artwork)
                               : playerIcon(player),
                track->title, track->artist, track->isPlaying);
  }
  if (const auto* const running = std::get_if<RunningNoInfo>(&state)) {
    return card(playerIcon(player), running->displayName, "It doesn't say what's playing", false);
  }
  return card(symbolView("icon", ViewRole::artwork, "music.note"), "Nothing playing",
              "Press play and it shows up here", false);
}

}  // namespace talmo
