#include "platform/simulated/Scheduler.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace talmo {
namespace {

thread_local void* workerContext = nullptr;

}  // namespace

Scheduler::Scheduler(std::uint64_t seed)
    : random_(seed), mainLane_(std::make_shared<Lane>(Lane{.label = "main", .isMain = true})) {
  main_.label = "main thread";
}

Scheduler::~Scheduler() {
  shutdown();
  for (Context& worker : workers_) {
    {
      const std::lock_guard lock(turnMutex_);
      worker.isLeaving = true;
      worker.hasTurn = true;
    }
    worker.turn.notify_one();
    worker.thread.join();
  }
}

std::shared_ptr<Scheduler::Lane> Scheduler::makeLane(std::string label, bool isConcurrent) {
  return std::make_shared<Lane>(Lane{.label = std::move(label), .isConcurrent = isConcurrent});
}

void Scheduler::submit(const std::shared_ptr<Lane>& lane, std::function<void()> work) {
  if (isShutDown_) return;
  if (lane->items.empty()) lanesWithWork_.push_back(lane);
  lane->items.push_back(std::move(work));
}

void Scheduler::submitAfter(const std::shared_ptr<Lane>& lane, Duration delay,
                            std::function<void()> work) {
  if (isShutDown_) return;
  delayed_.emplace(now_ + delay, Delayed{lane, std::move(work)});
}

void Scheduler::submitRepeatedly(Duration interval, Duration tolerance,
                                 std::function<bool()> fire) {
  if (isShutDown_) return;
  auto timer = std::make_shared<Repeating>();
  timer->interval = interval;
  timer->tolerance = tolerance;
  timer->due = now_;
  timer->fire = std::move(fire);
  plan(*timer);
  repeating_.push_back(std::move(timer));
}

void Scheduler::plan(Repeating& timer) {
  do {
    timer.due += timer.interval;
  } while (timer.due <= now_);
  const auto steps = static_cast<std::uint64_t>(timer.tolerance.count()) + 1;
  timer.instant = timer.due + Duration(static_cast<Duration::rep>(random_() % steps));
}

bool Scheduler::pass(const std::shared_ptr<Gate>& gate, std::optional<Duration> timeout) {
  if (gate->count == 0 && !isShutDown_) {
    Context& self = currentContext();
    self.gate = gate;
    self.deadline = timeout ? std::optional(now_ + *timeout) : std::nullopt;
    waiting_.push_back(&self);
    handOver(self, idleWorker());
    self.gate = nullptr;
  }
  if (gate->count == 0) return false;
  --gate->count;
  return true;
}

void Scheduler::run(Duration duration) {
  condition_ = nullptr;
  limit_ = now_ + duration;
  returnToMain();
  now_ = std::max(now_, limit_);
}

bool Scheduler::runUntil(std::function<bool()> condition, Duration limit) {
  condition_ = std::move(condition);
  limit_ = now_ + limit;
  returnToMain();
  return std::exchange(condition_, nullptr)();
}

void Scheduler::shutdown() {
  if (isShutDown_) return;
  isShutDown_ = true;
  const auto lanes = std::exchange(lanesWithWork_, {});
  const auto delayed = std::exchange(delayed_, {});
  const auto repeating = std::exchange(repeating_, {});
  for (const std::shared_ptr<Lane>& lane : lanes) {
    const auto dropped = std::exchange(lane->items, {});
  }
  // What still waits goes on to its end, one after the other.
  returnToMain();
}

/// The main thread stands still here, but for the items of its own lane, until `pick` says that it
/// may return.
void Scheduler::returnToMain() {
  while (true) {
    mainIsRunning_ = true;
    handOver(main_, idleWorker());
    mainIsRunning_ = false;
    if (!forMain_) return;
    runItem(*std::exchange(forMain_, std::nullopt), main_);
  }
}

void Scheduler::handOver(Context& from, Context& to) {
  {
    const std::lock_guard lock(turnMutex_);
    to.hasTurn = true;
  }
  to.turn.notify_one();
  awaitTurn(*this, from);
}

void Scheduler::awaitTurn(Scheduler& scheduler, Context& self) {
  std::unique_lock lock(scheduler.turnMutex_);
  self.turn.wait(lock, [&self] { return self.hasTurn; });
  self.hasTurn = false;
}

Scheduler::Context& Scheduler::idleWorker() {
  if (!idle_.empty()) {
    Context& worker = *idle_.back();
    idle_.pop_back();
    return worker;
  }
  Context& worker = workers_.emplace_back();
  worker.thread = std::thread([this, &worker] { work(worker); });
  return worker;
}

Scheduler::Context& Scheduler::currentContext() {
  if (isMainThread()) return main_;
  if (workerContext == nullptr) {
    std::fputs("talmo: a thread that the simulation does not know waits in it\n", stderr);
    std::abort();
  }
  return *static_cast<Context*>(workerContext);
}

void Scheduler::work(Context& self) {
  workerContext = &self;
  awaitTurn(*this, self);
  while (!self.isLeaving) {
    const Choice choice = pick();
    if (choice.waiter != nullptr) {
      std::erase(waiting_, choice.waiter);
      idle_.push_back(&self);
      handOver(self, *choice.waiter);
    } else if (!choice.lane || choice.lane->isMain) {
      if (choice.lane) forMain_ = choice;
      idle_.push_back(&self);
      handOver(self, main_);
    } else {
      runItem(choice, self);
    }
  }
}

Scheduler::Choice Scheduler::pick() {
  while (true) {
    if (isShutDown_) {
      // The latest first: it may use what belongs to an earlier one.
      if (waiting_.empty()) return {};
      return {.waiter = waiting_.back()};
    }
    submitDue();
    if (mainIsRunning_ && condition_ && condition_()) return {};
    if (const std::vector<Choice> all = choices(); !all.empty()) {
      const Choice& choice = all[random_() % all.size()];
      trace_.push_back(choice.waiter != nullptr ? choice.waiter->label + " goes on"
                                                : choice.lane->label);
      return choice;
    }
    if (!moveTime()) {
      if (!mainIsRunning_) failDeadlocked();
      return {};
    }
  }
}

std::vector<Scheduler::Choice> Scheduler::choices() const {
  std::vector<Choice> all;
  for (const std::shared_ptr<Lane>& lane : lanesWithWork_) {
    if (lane->isMain ? !mainIsRunning_ : lane->isBusy) continue;
    const std::size_t count = lane->isConcurrent ? lane->items.size() : 1;
    for (std::size_t item = 0; item < count; ++item) all.push_back({.lane = lane, .item = item});
  }
  for (Context* waiter : waiting_) {
    if (isOver(*waiter)) all.push_back({.waiter = waiter});
  }
  return all;
}

bool Scheduler::isOver(const Context& waiter) const {
  return waiter.gate->count > 0 || (waiter.deadline && *waiter.deadline <= now_);
}

void Scheduler::runItem(const Choice& choice, Context& self) {
  Lane& lane = *choice.lane;
  const auto position = lane.items.begin() + static_cast<std::ptrdiff_t>(choice.item);
  std::function<void()> item = std::move(*position);
  lane.items.erase(position);
  if (lane.items.empty()) std::erase(lanesWithWork_, choice.lane);
  lane.isBusy = !lane.isConcurrent;
  const std::string label = std::exchange(self.label, lane.label);
  item();
  item = nullptr;
  self.label = label;
  lane.isBusy = false;
}

bool Scheduler::moveTime() {
  std::optional<Uptime> next;
  const auto consider = [&next](Uptime instant) {
    if (!next || instant < *next) next = instant;
  };
  if (!delayed_.empty()) consider(delayed_.begin()->first);
  for (const std::shared_ptr<Repeating>& timer : repeating_) {
    if (!timer->isQueued) consider(timer->instant);
  }
  for (const Context* waiter : waiting_) {
    if (waiter->deadline) consider(*waiter->deadline);
  }
  if (!next || (mainIsRunning_ && *next > limit_)) return false;
  now_ = std::max(now_, *next);
  return true;
}

void Scheduler::submitDue() {
  while (!delayed_.empty() && delayed_.begin()->first <= now_) {
    Delayed due = std::move(delayed_.begin()->second);
    delayed_.erase(delayed_.begin());
    submit(due.lane, std::move(due.work));
  }
  for (const std::shared_ptr<Repeating>& timer : repeating_) {
    if (timer->isQueued || timer->instant > now_) continue;
    timer->isQueued = true;
    submit(mainLane_, [this, timer] {
      timer->isQueued = false;
      plan(*timer);
      if (!timer->fire()) repeating_.remove(timer);
    });
  }
}

void Scheduler::failDeadlocked() const {
  std::fputs("talmo: the simulated main thread waits for what can never happen; waiting:", stderr);
  for (const Context* waiter : waiting_) std::fprintf(stderr, " [%s]", waiter->label.c_str());
  std::fputs("\n", stderr);
  std::abort();
}

}  // namespace talmo
