#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/linux/dispatch/LinuxDelayedWork.h"
#include "platform/linux/dispatch/LinuxGlobalQueue.h"
#include "platform/linux/dispatch/LinuxMainQueue.h"
#include "platform/linux/dispatch/LinuxQueueThread.h"
#include "platform/linux/dispatch/LinuxThreads.h"
#include "platform/linux/dispatch/LinuxWorkerPool.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Queues, timers and clocks on threads of this process. The thread that makes it is the main
/// thread, and destroys it, after everything that it made has been let go of.
class LinuxDispatch : public Dispatch {
 public:
  LinuxDispatch();
  /// Shuts down and waits for every thread.
  ~LinuxDispatch() override;

  Queue& mainQueue() override { return mainQueue_; }
  Queue& globalQueue(QualityOfService quality) override;
  std::shared_ptr<Queue> makeSerialQueue(std::string label, QualityOfService quality) override;
  void concurrentPerform(std::size_t count,
                         const std::function<void(std::size_t)>& iteration) override;
  std::shared_ptr<Timer> scheduledTimer(Duration interval, Duration tolerance,
                                        std::function<void()> block) override;
  std::shared_ptr<Semaphore> makeSemaphore(int value) override;
  void startThread(std::string name, QualityOfService quality, std::function<void()> body) override;
  bool isMainThread() const override { return std::this_thread::get_id() == mainThread_; }
  Date now() const override;
  Uptime uptime() const override;

  /// Serves the main queue until `stopMainLoop`. Main thread.
  void runMainLoop() { mainQueue_.serve(); }

  /// Ends `runMainLoop` after the current item, or at its start when it comes later. Any thread;
  /// may be called in a signal handler.
  void stopMainLoop() { mainQueue_.stop(); }

  /// Serves the main queue until `condition` holds or the deadline has come; returns whether it
  /// held. Main thread.
  bool serveMainQueueUntil(const std::function<bool()>& condition, Uptime deadline) {
    return mainQueue_.serveUntil(condition, deadline);
  }

  /// Takes no more work, drops what has not begun, timers and delayed work included (what a global
  /// queue has taken has begun), and waits, at
  /// most for `grace` when there is one, for what has and for every thread. Returns whether nothing
  /// runs any more. What is submitted from now on is released at once. Main thread; may be
  /// repeated.
  bool shutdown(std::optional<Duration> grace = std::nullopt);

 private:
  struct Workers {
    LinuxWorkerPool pool;
    LinuxGlobalQueue queue;
    Workers(LinuxThreads& threads, LinuxDelayedWork& delayed, QualityOfService quality);
  };

  Workers& workers(QualityOfService quality);

  const std::thread::id mainThread_ = std::this_thread::get_id();
  LinuxThreads threads_;
  LinuxDelayedWork delayed_;
  LinuxMainQueue mainQueue_;
  // By quality of service: an unprivileged thread that made way for others cannot come back.
  std::array<Workers, 4> workers_;
  Mutex queuesLock_;
  // Of the serial queues, to close them.
  std::vector<std::weak_ptr<LinuxQueueThread>> queues_ TALMO_GUARDED_BY(queuesLock_);
  bool closed_ TALMO_GUARDED_BY(queuesLock_) = false;
};

}  // namespace talmo
