#pragma once

#include <functional>
#include <string>

#include "platform/linux/dispatch/LinuxDelayedWork.h"
#include "platform/linux/dispatch/LinuxWorkerPool.h"
#include "platform/Queue.h"

namespace talmo {

/// The concurrent queue in front of a pool of workers.
class LinuxGlobalQueue : public Queue {
 public:
  /// Both live until every worker and the timer thread have ended.
  LinuxGlobalQueue(std::string label, LinuxWorkerPool& pool, LinuxDelayedWork& delayed);

  void async(std::function<void()> work) override;
  void asyncAfter(Duration delay, std::function<void()> work) override;
  const std::string& label() const override { return label_; }

 private:
  const std::string label_;
  LinuxWorkerPool& pool_;
  LinuxDelayedWork& delayed_;
};

}  // namespace talmo
