#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "platform/linux/dispatch/LinuxDelayedWork.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/Queue.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// The main queue and the loop that serves it. Submitting, `stop` and `close` belong to any thread,
/// serving to the main thread.
///
/// Where there is a QCoreApplication, its event loop serves the queue, one item at a time between
/// the toolkit's own events; so do the loops inside it, such as a menu's.
class LinuxMainQueue : public Queue {
 public:
  /// `delayed` lives until the timer thread has ended.
  explicit LinuxMainQueue(LinuxDelayedWork& delayed);

  void async(std::function<void()> work) override;
  void asyncAfter(Duration delay, std::function<void()> work) override;
  const std::string& label() const override { return label_; }

  /// Runs items until `stop`.
  void serve();

  /// Makes `serve` return when the current item has, or at once when it is called next. May be
  /// called in a signal handler.
  void stop();

  /// Runs items until `condition` holds, which is looked at after every item (or batch of the
  /// toolkit's events) and every millisecond, or until the deadline; returns whether it held.
  bool serveUntil(const std::function<bool()>& condition, Uptime deadline);

  /// Releases the items and takes no more.
  void close();

 private:
  bool runOne();
  void serveWithToolkit();
  /// Whether `stop` had been called and has not been heeded.
  bool takeStop() { return stopped_.exchange(false); }
  /// Runs the first item, having seen to it that the toolkit comes back for the next.
  void runOneForToolkit();
  /// Whether there has been a wake-up within the limit.
  bool awaitWakeUp(std::optional<Duration> limit) const;
  void forgetWakeUps() const;
  void wakeUp() const;

  const std::string label_ = "main";
  LinuxDelayedWork& delayed_;
  // An eventfd: readable when there may be something to do.
  const FileDescriptor wakeUp_;
  std::atomic<bool> stopped_ = false;
  Mutex mutex_;
  std::deque<std::function<void()>> items_ TALMO_GUARDED_BY(mutex_);
  bool closed_ TALMO_GUARDED_BY(mutex_) = false;
};

}  // namespace talmo
