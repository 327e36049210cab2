#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/macos/CFOwned.h"
#include "platform/macos/input/MacRunLoopSource.h"
#include "platform/RunLoop.h"

namespace talmo {

/// A thread's `CFRunLoop`. Its sources are `MacRunLoopSource`s.
class MacRunLoop : public RunLoop {
 public:
  /// The calling thread's run loop; it lives as long as the thread, and longer when someone else
  /// keeps it.
  static std::shared_ptr<MacRunLoop> current();

  void addSource(std::shared_ptr<RunLoopSource> source) override;
  void run() override;
  void stop() override;
  void performBlock(std::function<void()> block) override;
  void wakeUp() override;

 private:
  MacRunLoop();

  const CFOwned<CFRunLoopRef> runLoop_;
  // A run loop without sources ends by itself, and one whose tap is invalidated has none; this one
  // is never signalled.
  const CFOwned<CFRunLoopSourceRef> stay_;
  std::vector<std::shared_ptr<MacRunLoopSource>> sources_;
};

}  // namespace talmo
