#pragma once

#include <functional>
#include <string>

#include "support/Time.h"

namespace talmo {

/// A queue of work items, made or lent by `Dispatch`. Every function may be called on any thread.
///
/// A serial queue (the main queue is one) runs one item at a time in the order of submission; a
/// global queue runs any number at once. An item that has been submitted runs even when the last
/// owner of the queue lets go of it, unless the process ends first. Items do not throw.
class Queue {
 public:
  virtual ~Queue() = default;

  /// Submits `work`; returns at once.
  virtual void async(std::function<void()> work) = 0;

  /// Submits `work` when `delay` has passed; never earlier.
  virtual void asyncAfter(Duration delay, std::function<void()> work) = 0;

  /// The label given at creation; for logs and debuggers.
  virtual const std::string& label() const = 0;
};

}  // namespace talmo
