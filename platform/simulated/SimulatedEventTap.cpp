#include "platform/simulated/SimulatedEventTap.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {
namespace {

constexpr std::int16_t auxControlButtons = 8;
constexpr std::int64_t keyDown = 0x0A;
constexpr std::int64_t keyUp = 0x0B;

class Passing : public TapEvent {
 public:
  explicit Passing(const SimulatedEventTap::Event& event) : event_(event) {}
  std::uint32_t type() const override { return event_.type; }
  std::optional<SystemDefinedEvent> systemDefined() const override { return event_.content; }

 private:
  const SimulatedEventTap::Event event_;
};

}  // namespace

class SimulatedEventTap::Port : public EventTapPort {
 public:
  explicit Port(const EventTapParameters& parameters) : parameters_(parameters) {}

  void enable(bool on) override { isEnabled_ = on; }
  void invalidate() override { isValid_ = false; }

  bool isServed() const { return isValid_ && isEnabled_; }
  bool isValid() const { return isValid_; }
  bool wants(std::uint32_t type) const {
    return type >= 64 || ((parameters_.eventsOfInterest >> type) & 1) != 0;
  }
  TapVerdict call(const Event& event) const {
    Passing passing(event);
    return parameters_.callback(passing, parameters_.context);
  }

  Mutex mutex;
  std::weak_ptr<SimulatedRunLoop> runLoop TALMO_GUARDED_BY(mutex);

 private:
  const EventTapParameters parameters_;
  std::atomic<bool> isEnabled_ = true;
  std::atomic<bool> isValid_ = true;
};

class SimulatedEventTap::Source : public RunLoopSource {
 public:
  explicit Source(std::shared_ptr<Port> port) : port_(std::move(port)) {}

 private:
  const std::shared_ptr<Port> port_;
};

std::shared_ptr<EventTapPort> SimulatedEventTap::create(const EventTapParameters& parameters) {
  const MutexLock lock(mutex_);
  requests_.push_back(parameters);
  if (!isTrusted_) return nullptr;
  auto port = std::make_shared<Port>(parameters);
  ports_.insert(ports_.begin(), port);
  return port;
}

std::shared_ptr<RunLoopSource> SimulatedEventTap::makeRunLoopSource(
    const std::shared_ptr<EventTapPort>& port) {
  auto own = std::static_pointer_cast<Port>(port);
  // The caller's run loop is the one that will serve it.
  auto runLoop = std::static_pointer_cast<SimulatedRunLoop>(currentRunLoop());
  const MutexLock lock(own->mutex);
  own->runLoop = runLoop;
  return std::make_shared<Source>(own);
}

std::shared_ptr<RunLoop> SimulatedEventTap::currentRunLoop() {
  const MutexLock lock(mutex_);
  std::weak_ptr<SimulatedRunLoop>& slot = runLoops_[std::this_thread::get_id()];
  std::shared_ptr<SimulatedRunLoop> runLoop = slot.lock();
  if (!runLoop) {
    runLoop = std::make_shared<SimulatedRunLoop>(dispatch_);
    slot = runLoop;
  }
  return runLoop;
}

void SimulatedEventTap::setTrusted(bool trusted) {
  const MutexLock lock(mutex_);
  isTrusted_ = trusted;
}

void SimulatedEventTap::post(const Event& event) {
  std::shared_ptr<Port> port;
  {
    const MutexLock lock(mutex_);
    port = tapFor(event, nullptr);
    if (!port) {
      passed_.push_back(event);
      return;
    }
  }
  offer(port, event);
}

void SimulatedEventTap::postMediaKey(std::int32_t code, bool isKeyDown, bool isRepeat) {
  const std::int64_t state = isKeyDown ? keyDown : keyUp;
  const std::int64_t data1 = (std::int64_t{code} << 16) | (state << 8) | (isRepeat ? 1 : 0);
  post({.content = SystemDefinedEvent{.subtype = auxControlButtons, .data1 = data1}});
}

void SimulatedEventTap::disableTap(std::uint32_t notice) {
  std::shared_ptr<Port> port;
  {
    const MutexLock lock(mutex_);
    port = tapFor({}, nullptr);
  }
  if (!port) return;
  port->enable(false);
  offer(port, {.type = notice});
}

/// The newest tap that takes the event, of those that come after `below`.
std::shared_ptr<SimulatedEventTap::Port> SimulatedEventTap::tapFor(const Event& event,
                                                                   const Port* below) const {
  bool isBelow = below == nullptr;
  for (const std::weak_ptr<Port>& candidate : ports_) {
    const std::shared_ptr<Port> port = candidate.lock();
    if (!port) continue;
    if (isBelow && port->isServed() && port->wants(event.type)) return port;
    isBelow = isBelow || port.get() == below;
  }
  return nullptr;
}

/// Has the tap's run loop ask the callback, and passes on what it does not consume.
void SimulatedEventTap::offer(const std::shared_ptr<Port>& port, const Event& event) {
  std::shared_ptr<SimulatedRunLoop> runLoop;
  {
    const MutexLock lock(port->mutex);
    runLoop = port->runLoop.lock();
  }
  const bool isNotice = event.type == disabledByTimeout || event.type == disabledByUserInput;
  const auto decide = [this, port, event, isNotice] {
    TapVerdict verdict = TapVerdict::pass;
    if (port->isValid() && (port->isServed() || isNotice)) {
      const Uptime before = dispatch_.uptime();
      verdict = port->call(event);
      if (!isNotice && dispatch_.uptime() - before > patience) {
        port->enable(false);
        offer(port, {.type = disabledByTimeout});
      }
    }
    // A notice is for the tap alone.
    if (isNotice) return;
    std::shared_ptr<Port> next;
    {
      const MutexLock lock(mutex_);
      if (verdict == TapVerdict::consume) {
        consumed_.push_back(event);
        return;
      }
      next = tapFor(event, port.get());
      if (!next) {
        passed_.push_back(event);
        return;
      }
    }
    offer(next, event);
  };
  if (!runLoop) {
    // A tap that no run loop serves lets everything by.
    const MutexLock lock(mutex_);
    if (!isNotice) passed_.push_back(event);
    return;
  }
  runLoop->performBlock(decide);
  runLoop->wakeUp();
}

std::vector<SimulatedEventTap::Event> SimulatedEventTap::passed() const {
  const MutexLock lock(mutex_);
  return passed_;
}

std::vector<SimulatedEventTap::Event> SimulatedEventTap::consumed() const {
  const MutexLock lock(mutex_);
  return consumed_;
}

std::vector<EventTapParameters> SimulatedEventTap::requests() const {
  const MutexLock lock(mutex_);
  return requests_;
}

int SimulatedEventTap::enabledTaps() const {
  const MutexLock lock(mutex_);
  return static_cast<int>(std::ranges::count_if(ports_, [](const std::weak_ptr<Port>& candidate) {
    const std::shared_ptr<Port> port = candidate.lock();
    return port && port->isServed();
  }));
}

}  // namespace talmo
