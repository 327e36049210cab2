#include "platform/macos/dispatch/MacQueue.h"

#include <memory>
#include <utility>

#include "platform/macos/dispatch/DispatchTime.h"

namespace talmo {
namespace {

using Work = std::function<void()>;

// An item is handed over as a pointer, not as a block: a block would copy what the item holds, and
// the copy on the submitter's side might be the last to go, on the wrong thread.
void* handOver(Work work) {
  return std::make_unique<Work>(std::move(work)).release();
}

void run(void* item) {
  @autoreleasepool {
    const std::unique_ptr<Work> work(static_cast<Work*>(item));
    (*work)();
  }
}

}  // namespace

MacQueue::MacQueue(dispatch_queue_t queue)
    : queue_(queue), label_(dispatch_queue_get_label(queue)) {}

void MacQueue::async(Work work) {
  dispatch_async_f(queue_, handOver(std::move(work)), run);
}

void MacQueue::asyncAfter(Duration delay, Work work) {
  dispatch_after_f(timeAfter(delay), queue_, handOver(std::move(work)), run);
}

}  // namespace talmo
