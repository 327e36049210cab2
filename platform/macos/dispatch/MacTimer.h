#pragma once

#import <Foundation/Foundation.h>
#include <functional>
#include <memory>

#include "platform/Timer.h"
#include "support/Time.h"

namespace talmo {

/// A repeating timer of the main run loop, in all of its common modes: it goes on while a menu is
/// open. Main thread; may be destroyed anywhere.
class MacTimer : public Timer {
 public:
  MacTimer(Duration interval, Duration tolerance, std::function<void()> block);

  void invalidate() override;

 private:
  using Work = std::function<void()>;

  /// Shared with the timer's block, which may be running while it is taken away.
  const std::shared_ptr<std::shared_ptr<const Work>> work_;
  NSTimer* const timer_;
};

}  // namespace talmo
