#include "platform/linux/mediasession/SessionTracker.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <utility>

#include "platform/linux/mediasession/MprisSessions.h"
#include "support/MutexLock.h"
#include "support/Time.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

// Questions that belong together come this soon after each other, and get the same answer.
constexpr Duration freshness = 20ms;

int makeEventDescriptor() {
  const int descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (descriptor < 0) {
    std::perror("talmo: no eventfd for the media session");
    std::abort();
  }
  return descriptor;
}

}  // namespace

SessionTracker::SessionTracker(std::function<void(const Session&, const Session&)> onChange)
    : onChange_(std::move(onChange)), wakeUp_(makeEventDescriptor()) {}

SessionTracker::~SessionTracker() {
  std::thread thread;
  {
    const MutexLock lock(mutex_);
    isStopping_ = true;
    thread = std::move(thread_);
  }
  wake();
  if (thread.joinable()) thread.join();
}

void SessionTracker::start() {
  const MutexLock lock(mutex_);
  if (!thread_.joinable()) thread_ = std::thread([this] { serve(); });
}

void SessionTracker::ask(std::function<void(const Session&)> receive) {
  {
    const MutexLock lock(mutex_);
    questions_.push_back(std::move(receive));
  }
  wake();
}

void SessionTracker::wake() const {
  ::eventfd_write(wakeUp_.get(), 1);
}

void SessionTracker::serve() {
  ::pthread_setname_np(::pthread_self(), "media-session");
  MprisSessions sessions;
  Session session;
  std::optional<Uptime> time;
  const auto look = [&] {
    Session next = sessions.current(true);
    // Before the first look there is nothing that could have changed.
    if (time) onChange_(session, next);
    session = std::move(next);
    time = std::chrono::steady_clock::now();
  };
  while (true) {
    pollfd wakeUp{.fd = wakeUp_.get(), .events = POLLIN, .revents = 0};
    if (sessions.waitForChange({&wakeUp, 1}) == MprisSessions::Wake::change) {
      look();
      continue;
    }
    eventfd_t ignored = 0;
    ::eventfd_read(wakeUp_.get(), &ignored);
    std::vector<std::function<void(const Session&)>> questions;
    {
      const MutexLock lock(mutex_);
      if (isStopping_) return;
      questions.swap(questions_);
    }
    if (questions.empty()) continue;
    if (!time || std::chrono::steady_clock::now() - *time > freshness) look();
    for (const auto& receive : questions) receive(session);
  }
}

}  // namespace talmo
