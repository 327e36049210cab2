#include "platform/linux/dispatch/LinuxMainQueue.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

int makeEventDescriptor() {
  const int descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (descriptor < 0) {
    std::perror("talmo: no eventfd for the main queue");
    std::abort();
  }
  return descriptor;
}

}  // namespace

LinuxMainQueue::LinuxMainQueue(LinuxDelayedWork& delayed)
    : delayed_(delayed), wakeUp_(makeEventDescriptor()) {}

void LinuxMainQueue::async(std::function<void()> work) {
  const MutexLock lock(mutex_);
  if (closed_) return;
  items_.push_back(std::move(work));
  if (items_.size() == 1) wakeUp();
}

void LinuxMainQueue::asyncAfter(Duration delay, std::function<void()> work) {
  delayed_.schedule(LinuxDelayedWork::after(delay),
                    [this, work = std::move(work)]() mutable { async(std::move(work)); });
}

void LinuxMainQueue::serve() {
  if (QCoreApplication::instance() != nullptr) {
    serveWithToolkit();
    return;
  }
  while (!takeStop()) {
    if (!runOne() && awaitWakeUp(std::nullopt)) forgetWakeUps();
  }
}

void LinuxMainQueue::serveWithToolkit() {
  const QSocketNotifier notifier(wakeUp_.get(), QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [this] {
    forgetWakeUps();
    if (takeStop()) {
      // Ends the loops inside it as well.
      QCoreApplication::exit();
    } else {
      runOneForToolkit();
    }
  });
  // For what came before.
  wakeUp();
  QCoreApplication::exec();
}

void LinuxMainQueue::stop() {
  stopped_ = true;
  wakeUp();
}

bool LinuxMainQueue::serveUntil(const std::function<bool()>& condition, Uptime deadline) {
  const bool hasToolkit = QCoreApplication::instance() != nullptr;
  std::optional<QSocketNotifier> notifier;
  if (hasToolkit) {
    notifier.emplace(wakeUp_.get(), QSocketNotifier::Read);
    QObject::connect(&*notifier, &QSocketNotifier::activated, [this] {
      forgetWakeUps();
      runOneForToolkit();
    });
    wakeUp();
  }
  while (!condition()) {
    const Duration left = deadline - std::chrono::steady_clock::now();
    if (left <= Duration::zero()) return false;
    const Duration limit = std::min<Duration>(left, 1ms);
    if (hasToolkit) {
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      if (!condition()) awaitWakeUp(limit);
    } else if (!runOne() && awaitWakeUp(limit)) {
      forgetWakeUps();
    }
  }
  return true;
}

void LinuxMainQueue::close() {
  std::deque<std::function<void()>> released;
  const MutexLock lock(mutex_);
  closed_ = true;
  released.swap(items_);
}

bool LinuxMainQueue::runOne() {
  std::function<void()> item;
  {
    const MutexLock lock(mutex_);
    if (items_.empty()) return false;
    item = std::move(items_.front());
    items_.pop_front();
  }
  item();
  return true;
}

void LinuxMainQueue::runOneForToolkit() {
  bool isMore = false;
  {
    const MutexLock lock(mutex_);
    isMore = items_.size() > 1;
  }
  // Before the item, which may run a loop of its own.
  if (isMore) wakeUp();
  runOne();
}

bool LinuxMainQueue::awaitWakeUp(std::optional<Duration> limit) const {
  timespec time{};
  if (limit) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(*limit);
    time = {.tv_sec = seconds.count(), .tv_nsec = (*limit - seconds).count()};
  }
  pollfd poll{.fd = wakeUp_.get(), .events = POLLIN, .revents = 0};
  return ::ppoll(&poll, 1, limit ? &time : nullptr, nullptr) == 1;
}

void LinuxMainQueue::forgetWakeUps() const {
  // Whoever makes the queue non-empty after this writes again.
  std::uint64_t count = 0;
  [[maybe_unused]] const ssize_t ignored = ::read(wakeUp_.get(), &count, sizeof count);
}

void LinuxMainQueue::wakeUp() const {
  const std::uint64_t one = 1;
  // It fails only when the count is at its limit, and then the loop is awake anyway.
  [[maybe_unused]] const ssize_t ignored = ::write(wakeUp_.get(), &one, sizeof one);
}

}  // namespace talmo
