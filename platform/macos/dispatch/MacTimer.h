#pragma once

#import <Foundation/Foundation.h>
#include <functional>
#include <memory>

#include "platform/Timer.h"
#include "support/Time.h"

namespace talmo {

/// A repeating timer of the main run loop, in all of its common modes: it goes on while a menu is
/// open. Main thread; may be destroyed anywhere once it is invalid.
class MacTimer : public Timer, public std::enable_shared_from_this<MacTimer> {
 public:
  explicit MacTimer(std::function<void()> block);

  /// Begins. From now on it is kept until it is invalidated. Once.
  void schedule(Duration interval, Duration tolerance);

  void invalidate() override;

 private:
  void fire() const;

  /// Nothing once it is invalid.
  std::shared_ptr<const std::function<void()>> block_;
  NSTimer* timer_ = nil;
  /// What the run loop keeps. Not by the system's timer, which says of its block only that it lives
  /// as long as the timer.
  std::shared_ptr<MacTimer> kept_;
};

}  // namespace talmo
