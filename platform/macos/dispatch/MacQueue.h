#pragma once

#include <dispatch/dispatch.h>
#include <functional>
#include <string>

#include "platform/Queue.h"

namespace talmo {

/// A queue of libdispatch. Any thread.
class MacQueue : public Queue {
 public:
  /// A queue of the system's, or one that was just made. Keeps it.
  explicit MacQueue(dispatch_queue_t queue);

  void async(std::function<void()> work) override;
  void asyncAfter(Duration delay, std::function<void()> work) override;
  const std::string& label() const override { return label_; }

  /// For frameworks that call back on a queue. Never nil.
  dispatch_queue_t dispatchQueue() const { return queue_; }

 private:
  const dispatch_queue_t queue_;
  const std::string label_;
};

}  // namespace talmo
