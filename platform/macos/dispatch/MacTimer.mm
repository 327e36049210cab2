#include "platform/macos/dispatch/MacTimer.h"

#include <utility>

#include "platform/macos/Seconds.h"

namespace talmo {
namespace {

using Work = std::function<void()>;

NSTimer* schedule(Duration interval, Duration tolerance,
                  std::shared_ptr<std::shared_ptr<const Work>> slot) {
  NSTimer* const timer = [NSTimer scheduledTimerWithTimeInterval:toSeconds(interval) repeats:YES
                                                           block:^(NSTimer*) {
                                                             @autoreleasepool {
                                                               if (const auto work = *slot) {
                                                                 (*work)();
                                                               }
                                                             }
                                                           }];
  timer.tolerance = toSeconds(tolerance);
  // So far it is in the default mode only.
  [NSRunLoop.mainRunLoop addTimer:timer forMode:NSRunLoopCommonModes];
  return timer;
}

}  // namespace

MacTimer::MacTimer(Duration interval, Duration tolerance, Work block)
    : work_(std::make_shared<std::shared_ptr<const Work>>(
          std::make_shared<const Work>(std::move(block)))),
      timer_(schedule(interval, tolerance, work_)) {}

void MacTimer::invalidate() {
  [timer_ invalidate];
  // The system's timer keeps its block for as long as somebody keeps the timer.
  const std::shared_ptr<const Work> released = std::exchange(*work_, nullptr);
}

}  // namespace talmo
