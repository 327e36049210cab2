#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "keys/DecodedMediaKey.h"
#include "keys/MediaKeyTapDelegate.h"
#include "platform/EventTapPort.h"
#include "platform/RunLoop.h"
#include "platform/Semaphore.h"
#include "platform/TapEvent.h"
#include "platform/TapVerdict.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Captures the media keys, system-wide and before anybody else, and asks its delegate about each
/// event. It has a thread of its own, which serves the event tap; `start`, `stop` and destruction
/// belong to the main thread, the callback, `handle` and the delegate's answer to the tap thread.
class MediaKeyTap : public std::enable_shared_from_this<MediaKeyTap> {
 public:
  static std::shared_ptr<MediaKeyTap> make();

  /// Stops the tap and waits for its thread, so that no callback runs with a pointer to nothing.
  ~MediaKeyTap();
  MediaKeyTap(const MediaKeyTap&) = delete;
  MediaKeyTap& operator=(const MediaKeyTap&) = delete;

  /// The delegate is not kept alive; while there is none every event passes. Any thread.
  void setDelegate(std::weak_ptr<MediaKeyTapDelegate> delegate);

  /// Installs the tap if it is not running and returns whether one runs afterwards. Waits for the
  /// tap thread to have installed it or failed, and for that of an earlier tap to have ended.
  bool start();

  /// Has the tap thread remove the tap and end; does not wait for it.
  void stop();

  bool isRunning() const { return isRunning_; }

  /// Reads the `data1` word of an auxiliary-key event; nothing when it is no media key.
  static std::optional<DecodedMediaKey> decode(std::int64_t data1);

  /// The function that the event tap calls: `handle` of the tap that is its context.
  static TapVerdict callback(TapEvent& event, void* context);

  /// Decides over one event. Allocates nothing; whatever cannot be decoded passes.
  TapVerdict handle(TapEvent& event);

 private:
  MediaKeyTap() = default;

  bool install(std::shared_ptr<RunLoop>& runLoop);

  Mutex delegateLock_;
  std::weak_ptr<MediaKeyTapDelegate> delegate_ TALMO_GUARDED_BY(delegateLock_);
  Mutex portLock_;
  std::shared_ptr<EventTapPort> _machPort TALMO_GUARDED_BY(portLock_);
  // Written by the tap thread before `start` returns, by the main thread otherwise.
  std::shared_ptr<RunLoop> tapRunLoop_;
  bool isRunning_ = false;
  // Signalled when the thread of the last `start` has ended.
  std::shared_ptr<Semaphore> threadEnded_;
};

}  // namespace talmo
