#include "platform/macos/processes/ChildEnding.h"

#include <utility>

#include "support/MutexLock.h"

namespace talmo {

void ChildEnding::setHandler(Handler handler) {
  {
    const MutexLock lock(mutex_);
    // What was there before goes outside of the lock: it may hold anything.
    handler_.swap(handler);
    if (!handler_ || !termination_) return;
  }
  callHandlerSoon();
}

void ChildEnding::tell(const ChildTermination& termination) {
  {
    const MutexLock lock(mutex_);
    if (termination_) return;
    termination_ = termination;
    if (!handler_) return;
  }
  callHandlerSoon();
}

bool ChildEnding::isTold() const {
  const MutexLock lock(mutex_);
  return termination_.has_value();
}

void ChildEnding::callHandlerSoon() {
  post_([self = shared_from_this()] { self->callHandler(); });
}

void ChildEnding::callHandler() {
  Handler handler;
  ChildTermination termination;
  {
    const MutexLock lock(mutex_);
    handler.swap(handler_);
    termination = *termination_;
  }
  if (handler) handler(termination);
}

}  // namespace talmo
