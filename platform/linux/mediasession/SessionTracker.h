#pragma once

#include <functional>
#include <optional>
#include <thread>
#include <vector>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/mediasession/MprisSession.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Watches the media session on a thread of its own, which also keeps the record of the players'
/// order right for those that look at the session now and then. Any thread may call.
class SessionTracker {
 public:
  using Session = std::optional<MprisSession>;

  /// `onChange` gets the session before and after each look at it, on the tracker's thread.
  explicit SessionTracker(std::function<void(const Session&, const Session&)> onChange);
  /// Ends the thread; what was asked and not answered so far is released.
  ~SessionTracker();
  SessionTracker(const SessionTracker&) = delete;
  SessionTracker& operator=(const SessionTracker&) = delete;

  /// Starts the thread, unless it runs.
  void start();

  /// Has `receive` called on the tracker's thread with the session as it is then.
  void ask(std::function<void(const Session&)> receive);

 private:
  void serve();
  void wake() const;

  const std::function<void(const Session&, const Session&)> onChange_;
  const FileDescriptor wakeUp_;
  Mutex mutex_;
  std::vector<std::function<void(const Session&)>> questions_ TALMO_GUARDED_BY(mutex_);
  bool isStopping_ TALMO_GUARDED_BY(mutex_) = false;
  std::thread thread_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
