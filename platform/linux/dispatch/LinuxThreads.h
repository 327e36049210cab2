#pragma once

#include <condition_variable>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <thread>

#include "platform/QualityOfService.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// The threads that `LinuxDispatch` started, so that none outlives it. Any thread may call.
class LinuxThreads {
 public:
  LinuxThreads() = default;
  /// Waits for every thread.
  ~LinuxThreads();
  LinuxThreads(const LinuxThreads&) = delete;
  LinuxThreads& operator=(const LinuxThreads&) = delete;

  /// Starts a thread that runs `body`, releases it and ends. Debuggers show it by the last
  /// component of `label`, cut to what the kernel keeps.
  void start(const std::string& label, QualityOfService quality, std::function<void()> body);

  /// Waits until no thread runs, at most until `deadline` when there is one; returns whether none
  /// does. Not on one of the threads.
  bool waitForAll(std::optional<Uptime> deadline);

 private:
  void end(std::list<std::thread>::iterator thread);

  Mutex mutex_;
  std::condition_variable_any someEnded_;
  std::list<std::thread> running_ TALMO_GUARDED_BY(mutex_);
  // Past their last use of this object; joining them does not block.
  std::list<std::thread> ended_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
