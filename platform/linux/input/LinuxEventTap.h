#pragma once

#include <functional>
#include <memory>

#include "platform/EventTap.h"
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

  std::shared_ptr<EventTapPort> create(const EventTapParameters& parameters) override;
  std::shared_ptr<RunLoopSource> makeRunLoopSource(
      const std::shared_ptr<EventTapPort>& port) override;
  std::shared_ptr<RunLoop> currentRunLoop() override;

 private:
  Mutex mutex_;
  std::function<void()> displayLost_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
