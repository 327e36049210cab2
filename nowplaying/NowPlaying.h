#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "nowplaying/AdapterNowPlaying.h"
#include "nowplaying/ArtworkLookup.h"
#include "nowplaying/NowPlayingState.h"
#include "nowplaying/ScriptedTrack.h"
#include "nowplaying/SystemNowPlayingInfo.h"
#include "nowplaying/TidalHistory.h"
#include "nowplaying/TidalTitle.h"
#include "platform/Queue.h"
#include "platform/RunningApplication.h"
#include "platform/Timer.h"
#include "players/TargetApp.h"
#include "support/Published.h"

namespace talmo {

/// What there is to show of the target player. While it polls, it asks, in this order, the
/// adapter's stream, the system's own record, and the player itself, every two seconds and whenever
/// one of the first two has news; a missing artwork comes from a public catalogue.
///
/// Belongs to the main thread, which it never makes wait: whatever may take time is asked
/// elsewhere. An answer is shown only while its poll is the latest that has one and is about the
/// present target. Nothing here reports a failure, and nobody is asked for a permission.
class NowPlaying : public std::enable_shared_from_this<NowPlaying> {
 public:
  using TargetProvider = std::function<std::optional<TargetApp>()>;

  static std::shared_ptr<NowPlaying> make();

  ~NowPlaying();
  NowPlaying(const NowPlaying&) = delete;
  NowPlaying& operator=(const NowPlaying&) = delete;

  /// Polls from now on; begins anew when it does so already. For a short while a track that is
  /// shown stays, until the adapter has had the time to tell of it.
  void startPolling();

  /// What is shown stays.
  void stopPolling();

  /// Looks at once, without waiting for the next poll; does nothing unless it polls. For whoever
  /// knows that the target is another one.
  void pollNow();

  /// What there is to show; idle at first.
  const Published<NowPlayingState>& state() const { return state_; }
  Published<NowPlayingState>& state() { return state_; }

  /// `provider` is asked for the target, often.
  void setTargetProvider(TargetProvider provider) { targetProvider_ = std::move(provider); }

  /// The target, as the provider has it.
  std::optional<TargetApp> target() const {
    return targetProvider_ ? targetProvider_() : std::nullopt;
  }

  // Who owns the media session by the adapter's stream, and with what.

  std::optional<std::string> mediaOwnerBundleID() const;
  std::optional<std::string> mediaOwnerTitle() const;
  bool mediaOwnerIsPlaying() const;

  /// Whether `next` must not take the place of `current` yet.
  static bool warmupBlocksDowngrade(const NowPlayingState& current, const NowPlayingState& next,
                                    bool isWarmingUp);

 private:
  /// One look at one target. Shared with the work that is under way for it.
  struct Poll {
    /// Counts upwards.
    std::uint64_t number = 0;
    /// The polling that it belongs to.
    std::uint64_t run = 0;
    TargetApp target;
  };
  using PollPointer = std::shared_ptr<const Poll>;

  NowPlaying();

  void poll();
  void decide(const PollPointer& poll, const std::optional<RunningApplication>& application);
  void decideBySystem(const PollPointer& poll, const RunningApplication& application,
                      const std::optional<SystemNowPlayingInfo>& info);
  void endWarmup();
  /// Whether what the poll has found out may still be shown.
  bool isCurrent(const Poll& poll) const;
  void show(const Poll& poll, NowPlayingState next);
  /// Shows the track, and once more when the catalogue had the artwork that it lacks.
  void showWithArtwork(const PollPointer& poll, const NowPlayingTrack& track);
  /// Shows the track once more when its artwork has come.
  ArtworkLookup::Completion completing(const PollPointer& poll, NowPlayingTrack track);
  void setHero(NowPlayingState next);

  // The players that are asked themselves (PlayerFallbacks.cpp).

  void fallBack(const PollPointer& poll, const RunningApplication& application);
  void pollScripted(const PollPointer& poll);
  void publishScripted(const PollPointer& poll, const std::optional<ScriptedTrack>& track);
  void pollTidal(const PollPointer& poll, ProcessIdentifier process);
  void completeTidal(const PollPointer& poll, const TidalTitle& title);
  /// Has a poll run on the queue, unless a later one has been queued by then. A player that does
  /// not answer must not pile them up.
  void queuePoll(const PollPointer& poll, std::function<void()> work);
  /// Shows the state on the main thread. Any thread.
  static void publish(const std::weak_ptr<NowPlaying>& nowPlaying, const PollPointer& poll,
                      std::optional<NowPlayingState> state);

  Published<NowPlayingState> state_;
  TargetProvider targetProvider_;
  const std::shared_ptr<AdapterNowPlaying> adapter_;
  const std::shared_ptr<ArtworkLookup> artwork_;
  std::shared_ptr<Timer> timer_;
  bool isWarmingUp_ = false;
  std::shared_ptr<Timer> warmupTimer_;
  std::uint64_t run_ = 0;
  std::uint64_t lastPoll_ = 0;
  /// The latest poll of which it is known whether its target runs, and the latest that has shown
  /// something.
  std::uint64_t decidedPoll_ = 0;
  std::uint64_t shownPoll_ = 0;

  const std::shared_ptr<Queue> queue_;
  /// Shared with the queue, which never owns this object.
  const std::shared_ptr<std::atomic<std::uint64_t>> queuedPoll_;
  /// The queue's.
  const std::shared_ptr<TidalHistory> tidal_;
};

}  // namespace talmo
