#include "platform/macos/input/MacRunLoop.h"

#include <utility>

namespace talmo {
namespace {

constexpr CFIndex order = 0;

CFRunLoopRef retained(CFRunLoopRef runLoop) {
  CFRetain(runLoop);
  return runLoop;
}

CFRunLoopSourceRef makeSilentSource() {
  CFRunLoopSourceContext context{};
  context.perform = [](void*) {};
  return CFRunLoopSourceCreate(kCFAllocatorDefault, order, &context);
}

}  // namespace

std::shared_ptr<MacRunLoop> MacRunLoop::current() {
  thread_local const std::shared_ptr<MacRunLoop> runLoop(new MacRunLoop);
  return runLoop;
}

MacRunLoop::MacRunLoop() : runLoop_(retained(CFRunLoopGetCurrent())), stay_(makeSilentSource()) {}

void MacRunLoop::addSource(std::shared_ptr<RunLoopSource> source) {
  auto served = std::static_pointer_cast<MacRunLoopSource>(std::move(source));
  if (served->source() == nullptr) return;
  CFRunLoopAddSource(runLoop_.get(), served->source(), kCFRunLoopCommonModes);
  sources_.push_back(std::move(served));
}

void MacRunLoop::run() {
  CFRunLoopAddSource(runLoop_.get(), stay_.get(), kCFRunLoopCommonModes);
  CFRunLoopRun();
  CFRunLoopRemoveSource(runLoop_.get(), stay_.get(), kCFRunLoopCommonModes);
  for (const auto& served : sources_) {
    CFRunLoopRemoveSource(runLoop_.get(), served->source(), kCFRunLoopCommonModes);
  }
  sources_.clear();
}

void MacRunLoop::stop() {
  CFRunLoopStop(runLoop_.get());
}

void MacRunLoop::performBlock(std::function<void()> block) {
  // Shared, as the system copies what it is given: what the block holds goes where it ran.
  const auto work = std::make_shared<std::function<void()>>(std::move(block));
  CFRunLoopPerformBlock(runLoop_.get(), kCFRunLoopCommonModes, ^{
    @autoreleasepool {
      (*work)();
      *work = nullptr;
    }
  });
}

void MacRunLoop::wakeUp() {
  CFRunLoopWakeUp(runLoop_.get());
}

}  // namespace talmo
