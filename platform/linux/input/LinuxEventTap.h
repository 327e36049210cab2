#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "platform/EventTap.h"
#include "platform/linux/input/KeyHold.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Event taps over key grabs of the X server, and run loops over poll(2). The only events are those
/// of the media keys; a tap excludes every other program that grabs one of them.
class LinuxEventTap : public EventTap {
 public:
  /// Has `handler` called when the X server goes away under a tap: once, on that tap's thread. Any
  /// thread; for taps that are created later.
  void onDisplayLost(std::function<void()> handler);

  /// Has `handler` called whenever a tap does not get the keys or loses them: on that tap's thread.
  /// Any thread; for taps that are created later.
  void onKeysLost(std::function<void()> handler);

  std::shared_ptr<EventTapPort> create(const EventTapParameters& parameters) override;
  std::shared_ptr<RunLoopSource> makeRunLoopSource(
      const std::shared_ptr<EventTapPort>& port) override;
  std::shared_ptr<RunLoop> currentRunLoop() override;

  /// How the tap stands to the keys at this moment. That one was refused is told once, so that
  /// whoever only hears of changes hears of it; after that there is none. Any thread.
  KeyHold takeKeyHold();

 private:
  Mutex mutex_;
  std::function<void()> displayLost_ TALMO_GUARDED_BY(mutex_);
  std::function<void()> keysLost_ TALMO_GUARDED_BY(mutex_);
  /// Shared with the taps, which may outlive this object.
  const std::shared_ptr<std::atomic<KeyHold>> hold_ =
      std::make_shared<std::atomic<KeyHold>>(KeyHold::none);
};

}  // namespace talmo
