#include "platform/linux/dispatch/LinuxDispatch.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "platform/linux/dispatch/LinuxSemaphore.h"
#include "platform/linux/dispatch/LinuxSerialQueue.h"
#include "platform/linux/dispatch/LinuxTimer.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

// NSTimer makes the same of an interval that is not positive.
constexpr Duration shortestInterval = std::chrono::microseconds(100);

std::string nameOf(QualityOfService quality) {
  switch (quality) {
    case QualityOfService::unspecified:
      return "global";
    case QualityOfService::utility:
      return "utility";
    case QualityOfService::userInitiated:
      return "user-initiated";
    case QualityOfService::userInteractive:
      return "interactive";
  }
  return "global";
}

/// The iterations of one `concurrentPerform`, which several threads take one after the other.
class Iterations {
 public:
  Iterations(std::size_t count, const std::function<void(std::size_t)>& iteration)
      : count_(count), iteration_(&iteration) {}

  /// Runs iterations until none is left to begin.
  void run() {
    // A thread that comes after the end takes no index, and so does not touch what may be gone.
    for (std::size_t index = next_++; index < count_; index = next_++) {
      (*iteration_)(index);
      const MutexLock lock(mutex_);
      if (++ended_ == count_) allEnded_.notify_all();
    }
  }

  void waitForAll() {
    MutexLock lock(mutex_);
    while (ended_ < count_) allEnded_.wait(lock);
  }

 private:
  const std::size_t count_;
  const std::function<void(std::size_t)>* const iteration_;
  std::atomic<std::size_t> next_ = 0;
  Mutex mutex_;
  std::condition_variable_any allEnded_;
  std::size_t ended_ TALMO_GUARDED_BY(mutex_) = 0;
};

}  // namespace

LinuxDispatch::Workers::Workers(LinuxThreads& threads, LinuxDelayedWork& delayed,
                                QualityOfService quality)
    : pool(threads, nameOf(quality), quality), queue(nameOf(quality), pool, delayed) {}

LinuxDispatch::LinuxDispatch()
    : delayed_(threads_),
      mainQueue_(delayed_),
      workers_{Workers(threads_, delayed_, QualityOfService::unspecified),
               Workers(threads_, delayed_, QualityOfService::utility),
               Workers(threads_, delayed_, QualityOfService::userInitiated),
               Workers(threads_, delayed_, QualityOfService::userInteractive)} {}

LinuxDispatch::~LinuxDispatch() {
  shutdown();
}

Queue& LinuxDispatch::globalQueue(QualityOfService quality) {
  return workers(quality).queue;
}

std::shared_ptr<Queue> LinuxDispatch::makeSerialQueue(std::string label, QualityOfService quality) {
  const auto thread = std::make_shared<LinuxQueueThread>(threads_, label, quality);
  {
    const MutexLock lock(queuesLock_);
    if (closed_) thread->close();
    std::erase_if(queues_, [](const auto& queue) { return queue.expired(); });
    queues_.push_back(thread);
  }
  return std::make_shared<LinuxSerialQueue>(std::move(label), thread, delayed_);
}

void LinuxDispatch::concurrentPerform(std::size_t count,
                                      const std::function<void(std::size_t)>& iteration) {
  const auto iterations = std::make_shared<Iterations>(count, iteration);
  const std::size_t threads = std::min(count, Dispatch::concurrentIterations);
  for (std::size_t helper = 1; helper < threads; ++helper) {
    globalQueue(QualityOfService::unspecified).async([iterations] { iterations->run(); });
  }
  iterations->run();
  iterations->waitForAll();
}

std::shared_ptr<Timer> LinuxDispatch::scheduledTimer(Duration interval, Duration tolerance,
                                                     std::function<void()> block) {
  const auto timer = std::make_shared<LinuxTimer>(std::max(interval, shortestInterval), tolerance,
                                                  std::move(block), mainQueue_, delayed_);
  timer->schedule();
  return timer;
}

std::shared_ptr<Semaphore> LinuxDispatch::makeSemaphore(int value) {
  return std::make_shared<LinuxSemaphore>(value);
}

void LinuxDispatch::startThread(std::string name, QualityOfService quality,
                                std::function<void()> body) {
  threads_.start(name, quality, std::move(body));
}

Date LinuxDispatch::now() const {
  return std::chrono::system_clock::now();
}

Uptime LinuxDispatch::uptime() const {
  return std::chrono::steady_clock::now();
}

bool LinuxDispatch::shutdown(std::optional<Duration> grace) {
  const std::optional<Uptime> deadline =
      grace ? std::optional(LinuxDelayedWork::after(*grace)) : std::nullopt;
  delayed_.close();
  mainQueue_.close();
  for (Workers& workers : workers_) workers.pool.close();
  std::vector<std::weak_ptr<LinuxQueueThread>> queues;
  {
    const MutexLock lock(queuesLock_);
    closed_ = true;
    queues.swap(queues_);
  }
  for (const auto& queue : queues) {
    if (const auto thread = queue.lock()) thread->close();
  }
  return threads_.waitForAll(deadline);
}

LinuxDispatch::Workers& LinuxDispatch::workers(QualityOfService quality) {
  return workers_[static_cast<std::size_t>(quality)];
}

}  // namespace talmo
