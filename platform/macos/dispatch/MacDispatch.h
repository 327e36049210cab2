#pragma once

#include <array>
#include <cstddef>
#include <dispatch/dispatch.h>
#include <functional>
#include <memory>
#include <string>

#include "platform/Dispatch.h"
#include "platform/macos/dispatch/MacQueue.h"

namespace talmo {

/// Queues of libdispatch, timers of the main run loop, and threads of the system. It closes
/// nothing: the process ends with all of it.
class MacDispatch : public Dispatch {
 public:
  MacDispatch();
  /// Waits for the threads.
  ~MacDispatch() override;

  MacQueue& mainQueue() override { return mainQueue_; }
  MacQueue& globalQueue(QualityOfService quality) override;
  std::shared_ptr<Queue> makeSerialQueue(std::string label, QualityOfService quality) override;
  void concurrentPerform(std::size_t count,
                         const std::function<void(std::size_t)>& iteration) override;
  std::shared_ptr<Timer> scheduledTimer(Duration interval, Duration tolerance,
                                        std::function<void()> block) override;
  std::shared_ptr<Semaphore> makeSemaphore(int value) override;
  void startThread(std::string name, QualityOfService quality, std::function<void()> body) override;
  bool isMainThread() const override;
  Date now() const override;
  Uptime uptime() const override;

 private:
  MacQueue mainQueue_;
  /// By quality of service.
  std::array<MacQueue, 4> globalQueues_;
  /// The threads that have not ended.
  const dispatch_group_t threads_ = dispatch_group_create();
};

}  // namespace talmo
