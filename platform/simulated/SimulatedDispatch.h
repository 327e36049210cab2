#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/simulated/Scheduler.h"

namespace talmo {

/// Dispatch in virtual time. The thread that makes it is the simulated main thread; what stands
/// below `run` belongs to it. See `Scheduler` for how work is picked.
class SimulatedDispatch : public Dispatch {
 public:
  explicit SimulatedDispatch(std::uint64_t seed = 0);
  ~SimulatedDispatch() override;

  Queue& mainQueue() override { return *mainQueue_; }
  Queue& globalQueue(QualityOfService quality) override;
  std::shared_ptr<Queue> makeSerialQueue(std::string label, QualityOfService quality) override;
  void concurrentPerform(std::size_t count,
                         const std::function<void(std::size_t)>& iteration) override;
  std::shared_ptr<Timer> scheduledTimer(Duration interval, Duration tolerance,
                                        std::function<void()> block) override;
  std::shared_ptr<Semaphore> makeSemaphore(int value) override;
  void startThread(std::string name, QualityOfService quality, std::function<void()> body) override;
  bool isMainThread() const override { return scheduler_->isMainThread(); }
  Date now() const override;
  Uptime uptime() const override { return scheduler_->now(); }

  /// Runs what is due in the next `duration`, each thing at its time.
  void run(Duration duration) { scheduler_->run(duration); }
  /// Runs what can run without time passing.
  void runUntilIdle() { scheduler_->run(Duration::zero()); }
  /// Runs until `condition` holds, at most `limit`; returns whether it held.
  bool runUntil(std::function<bool()> condition, Duration limit) {
    return scheduler_->runUntil(std::move(condition), limit);
  }
  /// Lets time pass at once, as for a machine that slept.
  void jump(Duration duration) { scheduler_->jump(duration); }
  /// The names of all threads that were started.
  const std::vector<std::string>& startedThreads() const { return startedThreads_; }
  /// What the scheduler picked so far, in order.
  const std::vector<std::string>& trace() const { return scheduler_->trace(); }
  /// Ends all work for good; see `Scheduler::shutdown`.
  void shutdown() { scheduler_->shutdown(); }

 private:
  // Queues, semaphores and timers may outlive the dispatch; they share the scheduler.
  const std::shared_ptr<Scheduler> scheduler_;
  const std::shared_ptr<Queue> mainQueue_;
  std::array<std::shared_ptr<Queue>, 4> globalQueues_;
  std::vector<std::string> startedThreads_;
};

}  // namespace talmo
