#include "platform/simulated/SimulatedRunLoop.h"

#include <optional>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {

void SimulatedRunLoop::addSource(std::shared_ptr<RunLoopSource> source) {
  sources_.push_back(std::move(source));
}

void SimulatedRunLoop::run() {
  isStopped_ = false;
  // A wait without a limit ends unsignalled only when the simulated system is taken down.
  while (!isStopped_ && wake_->wait(std::nullopt)) {
    while (!isStopped_ && runBlock()) {
    }
  }
  // An event that still waits for its turn is not held back for good.
  while (runBlock()) {
  }
  sources_.clear();
}

bool SimulatedRunLoop::runBlock() {
  std::function<void()> block;
  {
    const MutexLock lock(mutex_);
    if (blocks_.empty()) return false;
    block = std::move(blocks_.front());
    blocks_.pop_front();
  }
  block();
  return true;
}

void SimulatedRunLoop::performBlock(std::function<void()> block) {
  const MutexLock lock(mutex_);
  blocks_.push_back(std::move(block));
}

}  // namespace talmo
