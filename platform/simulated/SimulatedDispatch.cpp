#include "platform/simulated/SimulatedDispatch.h"

#include <utility>

namespace talmo {
namespace {

// 1 January 2026, 12:00 UTC, when the simulated machine has been up for the scheduler's first hour.
constexpr Date startDate{std::chrono::seconds(1767268800)};

class SimulatedQueue : public Queue {
 public:
  SimulatedQueue(std::shared_ptr<Scheduler> scheduler, std::shared_ptr<Scheduler::Lane> lane)
      : scheduler_(std::move(scheduler)), lane_(std::move(lane)) {}

  void async(std::function<void()> work) override { scheduler_->submit(lane_, std::move(work)); }
  void asyncAfter(Duration delay, std::function<void()> work) override {
    scheduler_->submitAfter(lane_, delay, std::move(work));
  }
  const std::string& label() const override { return lane_->label; }

 private:
  const std::shared_ptr<Scheduler> scheduler_;
  const std::shared_ptr<Scheduler::Lane> lane_;
};

class SimulatedSemaphore : public Semaphore {
 public:
  SimulatedSemaphore(std::shared_ptr<Scheduler> scheduler, int value)
      : scheduler_(std::move(scheduler)),
        gate_(std::make_shared<Scheduler::Gate>(Scheduler::Gate{.count = value})) {}

  void signal() override { ++gate_->count; }
  bool wait(std::optional<Duration> timeout) override { return scheduler_->pass(gate_, timeout); }

 private:
  const std::shared_ptr<Scheduler> scheduler_;
  const std::shared_ptr<Scheduler::Gate> gate_;
};

class SimulatedTimer : public Timer {
 public:
  explicit SimulatedTimer(std::function<void()> block) : block_(std::move(block)) {}

  void invalidate() override {
    isValid_ = false;
    // The block may be what is running right now: its captures go when it has returned.
    if (!isFiring_) block_ = nullptr;
  }

  /// Calls the block; false when the timer is over.
  bool fire() {
    if (isValid_) {
      isFiring_ = true;
      block_();
      isFiring_ = false;
    }
    if (!isValid_) block_ = nullptr;
    return isValid_;
  }

 private:
  std::function<void()> block_;
  bool isValid_ = true;
  bool isFiring_ = false;
};

}  // namespace

SimulatedDispatch::SimulatedDispatch(std::uint64_t seed)
    : scheduler_(std::make_shared<Scheduler>(seed)),
      mainQueue_(std::make_shared<SimulatedQueue>(scheduler_, scheduler_->mainLane())) {
  for (std::shared_ptr<Queue>& queue : globalQueues_) {
    queue = std::make_shared<SimulatedQueue>(scheduler_, scheduler_->makeLane("global", true));
  }
}

SimulatedDispatch::~SimulatedDispatch() {
  shutdown();
}

Queue& SimulatedDispatch::globalQueue(QualityOfService quality) {
  return *globalQueues_.at(static_cast<std::size_t>(quality));
}

std::shared_ptr<Queue> SimulatedDispatch::makeSerialQueue(std::string label, QualityOfService) {
  return std::make_shared<SimulatedQueue>(scheduler_,
                                          scheduler_->makeLane(std::move(label), false));
}

void SimulatedDispatch::concurrentPerform(std::size_t count,
                                          const std::function<void(std::size_t)>& iteration) {
  const std::shared_ptr<Semaphore> done = makeSemaphore(0);
  for (std::size_t index = 0; index < count; ++index) {
    globalQueue(QualityOfService::unspecified).async([&iteration, index, done] {
      iteration(index);
      done->signal();
    });
  }
  for (std::size_t index = 0; index < count; ++index) done->wait(std::nullopt);
}

std::shared_ptr<Timer> SimulatedDispatch::scheduledTimer(Duration interval, Duration tolerance,
                                                         std::function<void()> block) {
  auto timer = std::make_shared<SimulatedTimer>(std::move(block));
  scheduler_->submitRepeatedly(interval, tolerance, [timer] { return timer->fire(); });
  return timer;
}

std::shared_ptr<Semaphore> SimulatedDispatch::makeSemaphore(int value) {
  return std::make_shared<SimulatedSemaphore>(scheduler_, value);
}

void SimulatedDispatch::startThread(std::string name, QualityOfService,
                                    std::function<void()> body) {
  startedThreads_.push_back(name);
  scheduler_->submit(scheduler_->makeLane(std::move(name), false), std::move(body));
}

Date SimulatedDispatch::now() const {
  return startDate + (scheduler_->now() - Scheduler::start);
}

}  // namespace talmo
