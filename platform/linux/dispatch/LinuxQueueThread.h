#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "platform/linux/dispatch/LinuxThreads.h"
#include "platform/QualityOfService.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The items of one serial queue and the thread that runs them: started with the first item, kept
/// while the queue has an owner, and kept on by items after that. Any thread may call.
class LinuxQueueThread : public std::enable_shared_from_this<LinuxQueueThread> {
 public:
  /// `threads` lives longer and waits for the thread before it goes.
  LinuxQueueThread(LinuxThreads& threads, std::string label, QualityOfService quality);

  void submit(std::function<void()> work);

  /// The queue has lost its owner: the thread ends after the last item.
  void release();

  /// Drops the items that have not begun, takes no more and lets the thread end.
  void close();

 private:
  void serve();

  LinuxThreads& threads_;
  const std::string label_;
  const QualityOfService quality_;
  Mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<std::function<void()>> items_ TALMO_GUARDED_BY(mutex_);
  bool running_ TALMO_GUARDED_BY(mutex_) = false;
  bool released_ TALMO_GUARDED_BY(mutex_) = false;
  bool closed_ TALMO_GUARDED_BY(mutex_) = false;
};

}  // namespace talmo
