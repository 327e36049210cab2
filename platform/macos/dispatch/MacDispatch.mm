#include "platform/macos/dispatch/MacDispatch.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

#import <Foundation/Foundation.h>

#include "platform/macos/dispatch/MacSemaphore.h"
#include "platform/macos/dispatch/MacTimer.h"
#include "platform/macos/dispatch/QosClass.h"
#include "platform/macos/Text.h"

namespace talmo {
namespace {

MacQueue globalQueueOf(QualityOfService quality) {
  return MacQueue(dispatch_get_global_queue(qosClass(quality), 0));
}

/// The iterations of one `concurrentPerform`, which several threads take one after the other. Not
/// those of dispatch_apply: it runs as many at once as there are cores, and ours wait for other
/// processes. A global queue makes up for threads that wait, up to 64.
class Iterations {
 public:
  Iterations(std::size_t count, const std::function<void(std::size_t)>& iteration)
      : count_(count), iteration_(&iteration) {
    for (std::size_t index = 0; index < count_; ++index) dispatch_group_enter(running_);
  }

  /// Runs iterations until none is left to begin.
  void run() {
    // A thread that comes after the end takes no index, and so does not touch what may be gone.
    for (std::size_t index = next_++; index < count_; index = next_++) {
      @autoreleasepool {
        (*iteration_)(index);
      }
      dispatch_group_leave(running_);
    }
  }

  void waitForAll() { dispatch_group_wait(running_, DISPATCH_TIME_FOREVER); }

 private:
  const std::size_t count_;
  const std::function<void(std::size_t)>* const iteration_;
  std::atomic<std::size_t> next_ = 0;
  const dispatch_group_t running_ = dispatch_group_create();
};

}  // namespace

MacDispatch::MacDispatch()
    : mainQueue_(dispatch_get_main_queue()),
      globalQueues_{globalQueueOf(QualityOfService::unspecified),
                    globalQueueOf(QualityOfService::utility),
                    globalQueueOf(QualityOfService::userInitiated),
                    globalQueueOf(QualityOfService::userInteractive)} {}

MacDispatch::~MacDispatch() {
  dispatch_group_wait(threads_, DISPATCH_TIME_FOREVER);
}

MacQueue& MacDispatch::globalQueue(QualityOfService quality) {
  return globalQueues_[static_cast<std::size_t>(quality)];
}

std::shared_ptr<Queue> MacDispatch::makeSerialQueue(std::string label, QualityOfService quality) {
  dispatch_queue_attr_t attributes = DISPATCH_QUEUE_SERIAL;
  if (quality != QualityOfService::unspecified) {
    attributes = dispatch_queue_attr_make_with_qos_class(
        attributes, static_cast<qos_class_t>(qosClass(quality)), 0);
  }
  return std::make_shared<MacQueue>(dispatch_queue_create(label.c_str(), attributes));
}

void MacDispatch::concurrentPerform(std::size_t count,
                                    const std::function<void(std::size_t)>& iteration) {
  const auto iterations = std::make_shared<Iterations>(count, iteration);
  const auto run = ^{
    iterations->run();
  };
  const dispatch_queue_t queue = dispatch_get_global_queue(QOS_CLASS_DEFAULT, 0);
  const std::size_t threads = std::min(count, concurrentIterations);
  for (std::size_t helper = 1; helper < threads; ++helper) dispatch_async(queue, run);
  iterations->run();
  iterations->waitForAll();
}

std::shared_ptr<Timer> MacDispatch::scheduledTimer(Duration interval, Duration tolerance,
                                                   std::function<void()> block) {
  const auto timer = std::make_shared<MacTimer>(std::move(block));
  timer->schedule(interval, tolerance);
  return timer;
}

std::shared_ptr<Semaphore> MacDispatch::makeSemaphore(int value) {
  return std::make_shared<MacSemaphore>(value);
}

void MacDispatch::startThread(std::string name, QualityOfService quality,
                              std::function<void()> body) {
  @autoreleasepool {
    const auto work = std::make_shared<std::function<void()>>(std::move(body));
    const dispatch_group_t threads = threads_;
    dispatch_group_enter(threads);
    NSThread* const thread = [[NSThread alloc] initWithBlock:^{
      @autoreleasepool {
        (*work)();
        // The thread's block lives for as long as the object that stands for the thread.
        *work = nullptr;
      }
      dispatch_group_leave(threads);
    }];
    thread.name = toNSString(name);
    if (quality != QualityOfService::unspecified) {
      thread.qualityOfService = static_cast<NSQualityOfService>(qosClass(quality));
    }
    [thread start];
  }
}

bool MacDispatch::isMainThread() const {
  return NSThread.isMainThread;
}

Date MacDispatch::now() const {
  return std::chrono::system_clock::now();
}

Uptime MacDispatch::uptime() const {
  return std::chrono::steady_clock::now();
}

}  // namespace talmo
