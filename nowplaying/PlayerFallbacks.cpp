// The part of the aggregator that asks the players themselves, where neither the adapter nor the
// system tells what they play.

#include <string_view>
#include <utility>

#include "nowplaying/NowPlaying.h"
#include "permissions/AutomationPermission.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("now-playing");

constexpr std::string_view tidal = "com.tidal.desktop";
constexpr std::string_view spotify = "com.spotify.client";
constexpr std::string_view music = "com.apple.Music";

/// The first track that a window of the process names.
std::optional<TidalTitle> windowTrack(ProcessIdentifier process) {
  for (const std::string& title : platform().accessibility().windowTitles(process)) {
    std::optional<TidalTitle> track = TidalTitle::parseTidalTitle(title);
    if (!track) continue;
    log.debug("TIDAL window title: %{public}s", title);
    return track;
  }
  return std::nullopt;
}

}  // namespace

void NowPlaying::fallBack(const PollPointer& poll, const RunningApplication& application) {
  const std::string& bundleID = poll->target.bundleID;
  if (bundleID == tidal) {
    pollTidal(poll, application.processIdentifier);
    return;
  }
  if (bundleID == spotify || bundleID == music) {
    const std::optional<AutomationStatus> consent = AutomationPermission::cachedStatus(bundleID);
    if (consent == AutomationStatus::granted) {
      pollScripted(poll);
      return;
    }
    log.info(
        "now-playing fallback skipped for %{public}s: Automation not granted (cached: "
        "%{public}s)",
        bundleID, consent ? name(*consent) : "nil");
    if (!consent) AutomationPermission::refreshStatus(bundleID, {});
  }
  show(*poll, RunningNoInfo{poll->target.displayName});
}

void NowPlaying::pollScripted(const PollPointer& poll) {
  queuePoll(poll, [weak = weak_from_this(), poll] {
    platform().dispatch().mainQueue().async(
        [weak, poll, track = ScriptedTrack::read(poll->target.bundleID)] {
          if (const auto self = weak.lock()) self->publishScripted(poll, track);
        });
  });
}

void NowPlaying::publishScripted(const PollPointer& poll,
                                 const std::optional<ScriptedTrack>& track) {
  if (!track) {
    show(*poll, NowPlayingIdle{});
    return;
  }
  const NowPlayingTrack shown{.title = track->title,
                              .artist = track->artist,
                              .artwork = track->artwork,
                              .isPlaying = track->isPlaying};
  show(*poll, shown);
  if (shown.artwork) return;
  artwork_->resolveSpotifyArtwork(track->artworkUrl, completing(poll, shown));
}

void NowPlaying::pollTidal(const PollPointer& poll, ProcessIdentifier process) {
  queuePoll(poll, [weak = weak_from_this(), poll, history = tidal_, process] {
    std::optional<TidalTitle> title = windowTrack(process);
    if (!title) {
      publish(weak, poll, history->missed(poll->number, poll->target.displayName));
      return;
    }
    platform().dispatch().mainQueue().async([weak, poll, title = *std::move(title)] {
      if (const auto self = weak.lock()) self->completeTidal(poll, title);
    });
  });
}

void NowPlaying::completeTidal(const PollPointer& poll, const TidalTitle& title) {
  artwork_->resolveLookupArtwork(
      title.title, title.artist,
      [weak = weak_from_this(), poll, title](const std::optional<Image>& image) {
        const std::shared_ptr<NowPlaying> self = weak.lock();
        // What nobody waits for any more is not remembered either.
        if (!self || !self->isCurrent(*poll)) return;
        // A window's title does not tell whether the track plays.
        NowPlayingTrack track{
            .title = title.title, .artist = title.artist, .artwork = image, .isPlaying = false};
        self->queue_->async([weak, poll, history = self->tidal_, track = std::move(track)] {
          publish(weak, poll, history->found(poll->number, track));
        });
      });
}

void NowPlaying::queuePoll(const PollPointer& poll, std::function<void()> work) {
  *queuedPoll_ = poll->number;
  queue_->async([latest = queuedPoll_, number = poll->number, work = std::move(work)] {
    if (*latest == number) work();
  });
}

void NowPlaying::publish(const std::weak_ptr<NowPlaying>& nowPlaying, const PollPointer& poll,
                         std::optional<NowPlayingState> state) {
  if (!state) return;
  platform().dispatch().mainQueue().async([nowPlaying, poll, state = *std::move(state)] {
    if (const auto self = nowPlaying.lock()) self->show(*poll, state);
  });
}

}  // namespace talmo
