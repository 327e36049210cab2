#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/dispatch/LinuxDelayedWork.h"
#include "platform/linux/dispatch/LinuxQueueThread.h"
#include "platform/Queue.h"

namespace talmo {

/// The owner's end of a serial queue; its items do not need it.
class LinuxSerialQueue : public Queue {
 public:
  /// `delayed` lives longer.
  LinuxSerialQueue(std::string label, std::shared_ptr<LinuxQueueThread> thread,
                   LinuxDelayedWork& delayed);
  ~LinuxSerialQueue() override;

  void async(std::function<void()> work) override;
  void asyncAfter(Duration delay, std::function<void()> work) override;
  const std::string& label() const override { return label_; }

 private:
  const std::string label_;
  const std::shared_ptr<LinuxQueueThread> thread_;
  LinuxDelayedWork& delayed_;
};

}  // namespace talmo
