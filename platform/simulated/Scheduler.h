#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "support/Time.h"

namespace talmo {

/// Runs all work of a simulated system, one item at a time, in virtual time.
///
/// Work is picked from everything that could run by a seeded choice, so that a run is its seed.
/// Time moves only when nothing can run. An item that waits keeps its stack, on a thread of its own
/// that stands still meanwhile; exactly one of these threads moves at any moment, so that neither
/// this class nor the simulated services need a lock among themselves.
///
/// The thread that makes the scheduler is the main thread of the simulated system. `run` and its
/// siblings belong to it, outside of any item.
class Scheduler {
 public:
  /// A queue as the scheduler sees it. Several items of a concurrent lane may be under way.
  struct Lane {
    std::string label;
    bool isConcurrent = false;
    bool isMain = false;
    bool isBusy = false;
    std::deque<std::function<void()>> items;
  };

  /// What a context waits for: the count to be above zero.
  struct Gate {
    int count = 0;
  };

  /// Where the clock stands at first.
  static constexpr Uptime start{std::chrono::hours(1)};

  explicit Scheduler(std::uint64_t seed);
  ~Scheduler();
  Scheduler(const Scheduler&) = delete;
  Scheduler& operator=(const Scheduler&) = delete;

  std::shared_ptr<Lane> makeLane(std::string label, bool isConcurrent);
  const std::shared_ptr<Lane>& mainLane() const { return mainLane_; }

  void submit(const std::shared_ptr<Lane>& lane, std::function<void()> work);
  void submitAfter(const std::shared_ptr<Lane>& lane, Duration delay, std::function<void()> work);

  /// Submits `fire` to the main lane every `interval`, up to `tolerance` late, until it answers
  /// false. A firing that has not run yet is not doubled, and periods that went by are left out.
  void submitRepeatedly(Duration interval, Duration tolerance, std::function<bool()> fire);

  /// Takes one from the gate's count; waits for it while others run. False when the time ran out,
  /// or when the simulated system is being taken down.
  bool pass(const std::shared_ptr<Gate>& gate, std::optional<Duration> timeout);

  bool isMainThread() const { return std::this_thread::get_id() == mainThread_; }
  Uptime now() const { return now_; }

  /// Runs everything that is due in the next `duration`, in its order in time; ends there.
  void run(Duration duration);

  /// Runs until `condition` holds, which is asked between items, at most `limit`. Returns whether
  /// it held.
  bool runUntil(std::function<bool()> condition, Duration limit);

  /// Lets the time pass at once, as for a machine that slept. What became due meanwhile runs with
  /// the next `run`, late.
  void jump(Duration duration) { now_ += duration; }

  /// Ends all work: what waits goes on with its wait at an end, what is queued is dropped, and
  /// nothing new is taken. Called by the destructor at the latest.
  void shutdown();

  /// Every choice so far: the labels of what was picked, in order.
  const std::vector<std::string>& trace() const { return trace_; }

 private:
  /// A thread with a stack to run on, or to keep while it waits.
  struct Context {
    std::condition_variable turn;
    bool hasTurn = false;
    bool isLeaving = false;
    /// The label of the lane whose item it runs.
    std::string label;
    // What it waits for, and until when.
    std::shared_ptr<Gate> gate;
    std::optional<Uptime> deadline;
    std::thread thread;
  };

  struct Delayed {
    std::shared_ptr<Lane> lane;
    std::function<void()> work;
  };

  struct Repeating {
    Duration interval;
    Duration tolerance;
    Uptime due;      // on the ideal schedule
    Uptime instant;  // with this round's lateness
    bool isQueued = false;
    std::function<bool()> fire;
  };

  /// One thing that could go on: an item of a lane, a context whose wait is over, or (with neither)
  /// the main thread's return from `run`.
  struct Choice {
    std::shared_ptr<Lane> lane;
    std::size_t item = 0;
    Context* waiter = nullptr;
  };

  static void awaitTurn(Scheduler& scheduler, Context& self);
  void handOver(Context& from, Context& to);
  void work(Context& self);
  Context& idleWorker();
  Context& currentContext();

  Choice pick();
  std::vector<Choice> choices() const;
  bool isOver(const Context& waiter) const;
  void runItem(const Choice& choice, Context& self);
  bool moveTime();
  void submitDue();
  void plan(Repeating& timer);
  void returnToMain();
  [[noreturn]] void failDeadlocked() const;

  const std::thread::id mainThread_ = std::this_thread::get_id();
  std::mt19937_64 random_;
  Uptime now_ = start;

  // Only for handing over the turn; all other state belongs to whoever has it.
  std::mutex turnMutex_;
  Context main_;
  std::list<Context> workers_;
  std::vector<Context*> idle_;
  std::vector<Context*> waiting_;

  std::shared_ptr<Lane> mainLane_;
  std::vector<std::shared_ptr<Lane>> lanesWithWork_;
  std::multimap<Uptime, Delayed> delayed_;
  std::list<std::shared_ptr<Repeating>> repeating_;

  // While the main thread stands in `run`: when it may return, and what it is to run until then.
  bool mainIsRunning_ = false;
  std::function<bool()> condition_;
  Uptime limit_;
  std::optional<Choice> forMain_;

  bool isShutDown_ = false;
  std::vector<std::string> trace_;
};

}  // namespace talmo
