#include "platform/linux/input/LinuxRunLoop.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {
namespace {

int makeEventDescriptor() {
  const int descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (descriptor < 0) {
    std::perror("talmo: no eventfd for a run loop");
    std::abort();
  }
  return descriptor;
}

timespec timeUntil(Uptime deadline) {
  const Duration left =
      std::max<Duration>(deadline - std::chrono::steady_clock::now(), Duration::zero());
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
  return {.tv_sec = seconds.count(), .tv_nsec = (left - seconds).count()};
}

}  // namespace

std::shared_ptr<LinuxRunLoop> LinuxRunLoop::current() {
  thread_local const std::shared_ptr<LinuxRunLoop> runLoop(new LinuxRunLoop);
  return runLoop;
}

LinuxRunLoop::LinuxRunLoop() : wakeUp_(makeEventDescriptor()) {}

void LinuxRunLoop::addSource(std::shared_ptr<RunLoopSource> source) {
  if (auto served = std::dynamic_pointer_cast<LinuxRunLoopSource>(std::move(source))) {
    sources_.push_back(std::move(served));
  }
}

void LinuxRunLoop::run() {
  isStopped_ = false;
  while (true) {
    runBlocks();
    if (isStopped_) break;
    serveSources();
    if (isStopped_) break;
    wait();
  }
  sources_.clear();
}

void LinuxRunLoop::performBlock(std::function<void()> block) {
  const MutexLock lock(mutex_);
  blocks_.push_back(std::move(block));
}

void LinuxRunLoop::wakeUp() {
  const std::uint64_t one = 1;
  // It fails only when the count is at its limit, and then the loop is awake anyway.
  [[maybe_unused]] const ssize_t ignored = ::write(wakeUp_.get(), &one, sizeof one);
}

void LinuxRunLoop::runBlocks() {
  std::size_t left = 0;
  {
    const MutexLock lock(mutex_);
    left = blocks_.size();
  }
  // Those that a block adds have to wait for the sources.
  for (; left > 0 && !isStopped_; --left) {
    std::function<void()> block;
    {
      const MutexLock lock(mutex_);
      block = std::move(blocks_.front());
      blocks_.pop_front();
    }
    block();
  }
}

void LinuxRunLoop::serveSources() {
  // By index: a source that is served may add another.
  for (std::size_t index = 0; index < sources_.size() && !isStopped_; ++index) {
    const std::shared_ptr<LinuxRunLoopSource> source = sources_[index];
    if (!source->descriptors().empty()) source->serve();
  }
  std::erase_if(sources_, [](const auto& source) { return source->descriptors().empty(); });
}

void LinuxRunLoop::wait() {
  polled_.clear();
  polled_.push_back({.fd = wakeUp_.get(), .events = POLLIN, .revents = 0});
  std::optional<Uptime> deadline;
  for (const auto& source : sources_) {
    for (const int descriptor : source->descriptors()) {
      polled_.push_back({.fd = descriptor, .events = POLLIN, .revents = 0});
    }
    const std::optional<Uptime> own = source->deadline();
    if (own && (!deadline || *own < *deadline)) deadline = own;
  }
  const timespec time = timeUntil(deadline.value_or(Uptime()));
  if (::ppoll(polled_.data(), polled_.size(), deadline ? &time : nullptr, nullptr) <= 0) return;
  if (polled_.front().revents == 0) return;
  std::uint64_t count = 0;
  [[maybe_unused]] const ssize_t ignored = ::read(wakeUp_.get(), &count, sizeof count);
}

}  // namespace talmo
