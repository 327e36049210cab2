#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "nowplaying/AdapterLines.h"
#include "nowplaying/AdapterNowPlayingSnapshot.h"
#include "nowplaying/AdapterOwner.h"
#include "nowplaying/AdapterState.h"
#include "nowplaying/AdapterText.h"
#include "nowplaying/ArtworkCache.h"
#include "platform/ChildProcess.h"
#include "platform/Image.h"
#include "platform/Queue.h"
#include "support/Time.h"

namespace talmo {

/// Learns what the system is playing, and who owns its media session, from the adapter: a script of
/// ours in a process of its own. A long-lived run keeps `snapshot` up to date; short ones answer
/// the class's own questions.
///
/// Made, started, stopped and read on the main thread. Nothing here reports a failure: it is logged
/// and the answer is none, or the snapshot stays as it was.
class AdapterNowPlaying : public std::enable_shared_from_this<AdapterNowPlaying> {
 public:
  using ArtworkDecoder = std::function<std::optional<Image>(const std::optional<AdapterText>&)>;
  using Completion = std::function<void(std::optional<AdapterNowPlayingSnapshot>)>;

  static constexpr Duration defaultTimeout = std::chrono::milliseconds(1500);
  /// For so long an owner that was seen is believed.
  static constexpr Duration recentOwnerAge = std::chrono::seconds(15);

  static std::shared_ptr<AdapterNowPlaying> make();

  /// Ends the stream. Any thread.
  ~AdapterNowPlaying();
  AdapterNowPlaying(const AdapterNowPlaying&) = delete;
  AdapterNowPlaying& operator=(const AdapterNowPlaying&) = delete;

  /// Starts the stream, anew when it runs.
  void start();

  /// Ends the stream and forgets its state; the snapshot stays.
  void stop();

  /// What the stream said last; nothing before it said anything, or when nobody owns the session.
  const std::optional<AdapterNowPlayingSnapshot>& snapshot() const { return snapshot_; }

  /// `callback` is called on the main thread after each change of the snapshot.
  void setOnUpdate(std::function<void()> callback) { onUpdate_ = std::move(callback); }

  // The questions (AdapterQueries.cpp).

  /// Asks the adapter once, without a limit in time; `completion` is called on the main thread. Any
  /// thread.
  static void get(bool noArtwork, Completion completion);

  /// Asks the adapter once, without artwork, and waits for its answer. Any thread that may wait.
  static std::optional<AdapterNowPlayingSnapshot> getSync(Duration timeout = defaultTimeout);

  /// Has the owner of the session carry out a command of the media session (its number), and waits
  /// for that. Any thread that may wait.
  static void send(std::int32_t commandID, Duration timeout = defaultTimeout);

  /// Who owned the session when anybody last learnt it, at most that long ago. Any thread.
  static std::optional<AdapterOwner> recentOwner(Duration maxAge = recentOwnerAge);

  // How lines become snapshots (AdapterSnapshots.cpp). Any thread.

  /// The state after a line: the payload itself, or for a difference the state with the payload's
  /// values put in and its nulls taken out.
  static AdapterState applying(AdapterState payload, bool isDiff, AdapterState state);

  /// What a state says; nothing when the owner, a title or the playing flag is missing.
  static std::optional<AdapterNowPlayingSnapshot> snapshotFrom(
      const AdapterState& state, const ArtworkDecoder& decodeArtwork = decodedArtwork);

  /// The picture in a base64 text; nothing when there is none.
  static std::optional<Image> decodedArtwork(const std::optional<AdapterText>& base64);

 private:
  AdapterNowPlaying();

  void consume(std::uint64_t run, std::string bytes);
  void ended(std::uint64_t run, const ChildTermination& termination);
  void forget(std::uint64_t run);
  void publish(std::optional<AdapterNowPlayingSnapshot> snapshot);
  void leaveProcess();

  // Main thread.
  std::optional<AdapterNowPlayingSnapshot> snapshot_;
  std::function<void()> onUpdate_;
  std::shared_ptr<ChildProcess> process_;
  // Numbers the runs of the stream, so that what an earlier one still says is not taken for the
  // present one's.
  std::uint64_t run_ = 0;

  const std::shared_ptr<Queue> queue_;
  // The queue's.
  std::uint64_t currentRun_ = 0;
  AdapterState streamState_;
  AdapterLines buffer_;
  ArtworkCache artworkCache_;
};

}  // namespace talmo
