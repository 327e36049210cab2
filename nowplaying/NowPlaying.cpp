#include "nowplaying/NowPlaying.h"

#include <chrono>
#include <utility>
#include <variant>

#include "nowplaying/SessionMatch.h"
#include "nowplaying/SystemNowPlaying.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

constexpr Logger log("now-playing");
constexpr Duration period = 2s;
constexpr Duration tolerance = 500ms;
constexpr Duration warmup = 1200ms;

/// Whether the same track comes with an artwork, or with another one.
bool bringsArtwork(const NowPlayingState& next, const NowPlayingState& current) {
  const auto* const track = std::get_if<NowPlayingTrack>(&next);
  const auto* const shown = std::get_if<NowPlayingTrack>(&current);
  return track != nullptr && shown != nullptr && track->artwork && track->artwork != shown->artwork;
}

}  // namespace

std::shared_ptr<NowPlaying> NowPlaying::make() {
  return std::shared_ptr<NowPlaying>(new NowPlaying);
}

NowPlaying::NowPlaying()
    : adapter_(AdapterNowPlaying::make()),
      artwork_(ArtworkLookup::make()),
      queue_(platform().dispatch().makeSerialQueue("nl.brelm.talmo.now-playing",
                                                   QualityOfService::unspecified)),
      queuedPoll_(std::make_shared<std::atomic<std::uint64_t>>(0)),
      tidal_(std::make_shared<TidalHistory>()) {}

NowPlaying::~NowPlaying() {
  stopPolling();
}

void NowPlaying::startPolling() {
  stopPolling();
  isWarmingUp_ = true;
  const std::function<void()> pollOnce = [weak = weak_from_this()] {
    if (const std::shared_ptr<NowPlaying> self = weak.lock()) self->poll();
  };
  adapter_->setOnUpdate(pollOnce);
  adapter_->start();
  poll();
  Dispatch& dispatch = platform().dispatch();
  timer_ = dispatch.scheduledTimer(period, tolerance, pollOnce);
  warmupTimer_ = dispatch.scheduledTimer(warmup, Duration::zero(), [weak = weak_from_this()] {
    if (const std::shared_ptr<NowPlaying> self = weak.lock()) self->endWarmup();
  });
  if (const auto system = SystemNowPlaying::shared()) system->startObserving(pollOnce);
}

void NowPlaying::stopPolling() {
  if (timer_) timer_->invalidate();
  timer_ = nullptr;
  endWarmup();
  if (const auto system = SystemNowPlaying::shared()) system->stopObserving();
  adapter_->stop();
  adapter_->setOnUpdate({});
  ++run_;
}

void NowPlaying::pollNow() {
  if (timer_) poll();
}

void NowPlaying::endWarmup() {
  if (warmupTimer_) warmupTimer_->invalidate();
  warmupTimer_ = nullptr;
  isWarmingUp_ = false;
}

std::optional<std::string> NowPlaying::mediaOwnerBundleID() const {
  const std::optional<AdapterNowPlayingSnapshot>& snapshot = adapter_->snapshot();
  if (!snapshot) return std::nullopt;
  return snapshot->parentBundleID ? snapshot->parentBundleID : snapshot->bundleID;
}

std::optional<std::string> NowPlaying::mediaOwnerTitle() const {
  const std::optional<AdapterNowPlayingSnapshot>& snapshot = adapter_->snapshot();
  return snapshot ? std::optional(snapshot->title) : std::nullopt;
}

bool NowPlaying::mediaOwnerIsPlaying() const {
  const std::optional<AdapterNowPlayingSnapshot>& snapshot = adapter_->snapshot();
  return snapshot && snapshot->isPlaying;
}

bool NowPlaying::warmupBlocksDowngrade(const NowPlayingState& current, const NowPlayingState& next,
                                       bool isWarmingUp) {
  return isWarmingUp && std::holds_alternative<NowPlayingTrack>(current) &&
         !std::holds_alternative<NowPlayingTrack>(next);
}

void NowPlaying::poll() {
  std::optional<TargetApp> target = this->target();
  const std::uint64_t number = ++lastPoll_;
  if (!target) {
    shownPoll_ = number;
    setHero(NowPlayingIdle{});
    return;
  }
  const auto poll = std::make_shared<const Poll>(
      Poll{.number = number, .run = run_, .target = *std::move(target)});
  // Whether an application runs may have to be asked of other processes.
  Dispatch& dispatch = platform().dispatch();
  dispatch.globalQueue(QualityOfService::userInitiated).async([weak = weak_from_this(), poll] {
    platform().dispatch().mainQueue().async(
        [weak, poll, application = poll->target.runningApplication()] {
          if (const std::shared_ptr<NowPlaying> self = weak.lock()) self->decide(poll, application);
        });
  });
}

void NowPlaying::decide(const PollPointer& poll,
                        const std::optional<RunningApplication>& application) {
  if (!isCurrent(*poll) || poll->number < decidedPoll_) return;
  decidedPoll_ = poll->number;
  if (!application) {
    show(*poll, NowPlayingIdle{});
    return;
  }
  const std::optional<AdapterNowPlayingSnapshot>& snapshot = adapter_->snapshot();
  if (snapshot && SessionMatch::matches(*snapshot, poll->target)) {
    log.debug("adapter now-playing: %{public}s — %{public}s (art: %{bool}d, playing: %{bool}d)",
              snapshot->title, snapshot->artist, snapshot->artwork.has_value(),
              snapshot->isPlaying);
    showWithArtwork(poll, {.title = snapshot->title,
                           .artist = snapshot->artist,
                           .artwork = snapshot->artwork,
                           .isPlaying = snapshot->isPlaying});
    return;
  }
  const std::shared_ptr<SystemNowPlaying> system = SystemNowPlaying::shared();
  if (!system) {
    fallBack(poll, *application);
    return;
  }
  system->read([weak = weak_from_this(), poll,
                running = *application](const std::optional<SystemNowPlayingInfo>& info) {
    if (const auto self = weak.lock()) self->decideBySystem(poll, running, info);
  });
}

void NowPlaying::decideBySystem(const PollPointer& poll, const RunningApplication& application,
                                const std::optional<SystemNowPlayingInfo>& info) {
  if (!isCurrent(*poll)) return;
  if (!info || !SessionMatch::matches(*info, poll->target)) {
    fallBack(poll, application);
    return;
  }
  log.debug("system now-playing: %{public}s — %{public}s (art: %{bool}d, playing: %{bool}d)",
            info->title, info->artist, info->artwork.has_value(), info->isPlaying);
  showWithArtwork(poll, {.title = info->title,
                         .artist = info->artist,
                         .artwork = info->artwork,
                         .isPlaying = info->isPlaying});
}

bool NowPlaying::isCurrent(const Poll& poll) const {
  return poll.run == run_ && poll.number >= shownPoll_ && target() == poll.target;
}

void NowPlaying::show(const Poll& poll, NowPlayingState next) {
  if (!isCurrent(poll)) return;
  shownPoll_ = poll.number;
  setHero(std::move(next));
}

void NowPlaying::showWithArtwork(const PollPointer& poll, const NowPlayingTrack& track) {
  show(*poll, track);
  if (track.artwork) return;
  artwork_->resolveLookupArtwork(track.title, track.artist, completing(poll, track));
}

ArtworkLookup::Completion NowPlaying::completing(const PollPointer& poll, NowPlayingTrack track) {
  return [weak = weak_from_this(), poll,
          track = std::move(track)](std::optional<Image> image) mutable {
    const std::shared_ptr<NowPlaying> self = weak.lock();
    if (!self || !image) return;
    track.artwork = std::move(image);
    self->show(*poll, std::move(track));
  };
}

void NowPlaying::setHero(NowPlayingState next) {
  const NowPlayingState& current = state_.get();
  if (warmupBlocksDowngrade(current, next, isWarmingUp_)) {
    log.debug("hero downgrade dropped during adapter warm-up");
    return;
  }
  if (next != current || bringsArtwork(next, current)) state_.set(std::move(next));
}

}  // namespace talmo
