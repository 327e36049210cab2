#include "platform/linux/processes/ChildWatcher.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <pthread.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {

ChildWatcher::~ChildWatcher() {
  stop();
}

void ChildWatcher::watch(int descriptor, std::function<void()> ready) {
  auto shared = std::make_shared<const std::function<void()>>(std::move(ready));
  const MutexLock lock(mutex_);
  if (isStopped_) return;
  startThread();
  watched_[descriptor] = std::move(shared);
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.fd = descriptor;
  if (::epoll_ctl(waiting_.get(), EPOLL_CTL_ADD, descriptor, &event) != 0) {
    throw std::system_error(errno, std::generic_category(), "epoll_ctl");
  }
}

void ChildWatcher::forget(int descriptor) {
  std::shared_ptr<const std::function<void()>> dropped;
  const MutexLock lock(mutex_);
  const auto found = watched_.find(descriptor);
  if (found == watched_.end()) return;
  dropped = std::move(found->second);
  watched_.erase(found);
  ::epoll_ctl(waiting_.get(), EPOLL_CTL_DEL, descriptor, nullptr);
}

void ChildWatcher::post(std::function<void()> work) {
  const MutexLock lock(mutex_);
  if (isStopped_) return;
  startThread();
  posted_.push_back(std::move(work));
  wake();
}

void ChildWatcher::stop() {
  std::thread thread;
  {
    const MutexLock lock(mutex_);
    isStopped_ = true;
    if (thread_.joinable()) wake();
    thread.swap(thread_);
  }
  if (thread.joinable()) thread.join();
  std::map<int, std::shared_ptr<const std::function<void()>>> watched;
  std::vector<std::function<void()>> posted;
  const MutexLock lock(mutex_);
  watched.swap(watched_);
  posted.swap(posted_);
}

void ChildWatcher::startThread() {
  if (thread_.joinable()) return;
  waiting_ = FileDescriptor(::epoll_create1(EPOLL_CLOEXEC));
  wakeUp_ = FileDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
  if (!waiting_ || !wakeUp_) {
    throw std::system_error(errno, std::generic_category(), "the watcher of child processes");
  }
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.fd = wakeUp_.get();
  ::epoll_ctl(waiting_.get(), EPOLL_CTL_ADD, wakeUp_.get(), &event);
  thread_ = std::thread([this, waiting = waiting_.get()] { run(waiting); });
}

void ChildWatcher::wake() const {
  constexpr std::uint64_t one = 1;
  // It cannot fail in a way that matters: a full counter wakes as well.
  [[maybe_unused]] const ssize_t count = ::write(wakeUp_.get(), &one, sizeof one);
}

/// Returns whether the thread goes on.
bool ChildWatcher::runPosted() {
  std::vector<std::function<void()>> posted;
  {
    const MutexLock lock(mutex_);
    if (isStopped_) return false;
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t read = ::read(wakeUp_.get(), &count, sizeof count);
    posted.swap(posted_);
  }
  for (const std::function<void()>& work : posted) work();
  return true;
}

void ChildWatcher::run(int waiting) {
  ::pthread_setname_np(::pthread_self(), "children");
  std::array<epoll_event, 32> events{};
  while (runPosted()) {
    const int count =
        ::epoll_wait(waiting, events.data(), static_cast<int>(events.size()), /*timeout=*/-1);
    for (int index = 0; index < count; ++index) {
      std::shared_ptr<const std::function<void()>> ready;
      {
        // Looked up for each: an earlier call may have made it go, or it is the wake-up.
        const MutexLock lock(mutex_);
        const auto found = watched_.find(events.at(static_cast<std::size_t>(index)).data.fd);
        if (isStopped_ || found == watched_.end()) continue;
        ready = found->second;
      }
      (*ready)();
    }
  }
}

}  // namespace talmo
