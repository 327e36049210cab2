#include "platform/linux/dispatch/LinuxThreads.h"

#include <algorithm>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {
namespace {

// pthread_setname_np(3): 16 bytes with the terminating zero.
constexpr std::size_t longestName = 15;

constexpr int utilityNiceness = 5;
constexpr int highestNiceness = 19;

void setCurrentName(const std::string& label) {
  const std::string name = label.substr(label.rfind('.') + 1, longestName);
  ::pthread_setname_np(::pthread_self(), name.c_str());
}

void setCurrentQuality(QualityOfService quality) {
  if (quality != QualityOfService::utility) return;
  // On Linux the niceness of a thread is its own. Work that is more urgent than usual would need a
  // privilege, and less than usual never does.
  const auto thread = static_cast<id_t>(::gettid());
  const int usual = ::getpriority(PRIO_PROCESS, thread);
  ::setpriority(PRIO_PROCESS, thread, std::min(usual + utilityNiceness, highestNiceness));
}

}  // namespace

LinuxThreads::~LinuxThreads() {
  waitForAll(std::nullopt);
}

void LinuxThreads::start(const std::string& label, QualityOfService quality,
                         std::function<void()> body) {
  std::list<std::thread> ended;
  {
    const MutexLock lock(mutex_);
    ended.swap(ended_);
    const auto thread = running_.emplace(running_.end());
    *thread = std::thread([this, thread, label, quality, body = std::move(body)]() mutable {
      setCurrentName(label);
      setCurrentQuality(quality);
      body();
      body = nullptr;
      end(thread);
    });
  }
  for (std::thread& thread : ended) thread.join();
}

bool LinuxThreads::waitForAll(std::optional<Uptime> deadline) {
  std::list<std::thread> ended;
  bool all = false;
  {
    MutexLock lock(mutex_);
    while (!running_.empty()) {
      if (!deadline) {
        someEnded_.wait(lock);
      } else if (someEnded_.wait_until(lock, *deadline) == std::cv_status::timeout) {
        break;
      }
    }
    all = running_.empty();
    ended.swap(ended_);
  }
  for (std::thread& thread : ended) thread.join();
  return all;
}

void LinuxThreads::end(std::list<std::thread>::iterator thread) {
  const MutexLock lock(mutex_);
  ended_.splice(ended_.end(), running_, thread);
  someEnded_.notify_all();
}

}  // namespace talmo
