#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/EventTap.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo::test {

/// An event tap on a thread of its own that keeps what it is shown. It belongs to the main thread.
class TapThread {
 public:
  /// What the callback was shown.
  struct Shown {
    std::uint32_t type = 0;
    std::optional<SystemDefinedEvent> content;

    bool operator==(const Shown&) const = default;
  };

  /// Answers for one event, on the tap's thread; without one everything is consumed.
  using Decide = std::function<TapVerdict(const Shown&)>;

  /// Starts the thread; it creates the tap and serves it.
  TapThread(Dispatch& dispatch, EventTap& eventTap, Decide decide = {});

  /// Stops the tap if nobody has, and does not wait for its thread.
  ~TapThread();
  TapThread(const TapThread&) = delete;
  TapThread& operator=(const TapThread&) = delete;

  /// The thread has created the tap, or has been refused.
  bool isDecided() const { return state_->isDecided; }
  bool isInstalled() const { return state_->isInstalled; }
  bool hasEnded() const { return state_->hasEnded; }

  /// Removes the tap and ends the thread, as seen by `hasEnded`.
  void stop();

  /// Has the thread call `block`.
  void perform(std::function<void()> block);

  EventTapPort& port() { return *state_->port; }

  /// What the callback was shown, in order; the number may be asked for in conditions.
  std::vector<Shown> shown() const;
  std::size_t shownCount() const { return state_->shownCount; }

 private:
  struct State {
    Decide decide;
    std::atomic<bool> isDecided = false;
    std::atomic<bool> isInstalled = false;
    std::atomic<bool> hasEnded = false;
    // Written before `isDecided`, not changed afterwards.
    std::shared_ptr<EventTapPort> port;
    std::shared_ptr<RunLoop> runLoop;
    mutable Mutex mutex;
    std::vector<Shown> shown TALMO_GUARDED_BY(mutex);
    std::atomic<std::size_t> shownCount = 0;
  };

  static TapVerdict callback(TapEvent& event, void* context);

  const std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace talmo::test
