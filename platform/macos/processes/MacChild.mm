#include "platform/macos/processes/MacChild.h"

#include "platform/macos/Text.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

/// Where termination handlers run, one at a time. A queue of its own gets a thread even while all
/// those of the global queues wait, for instance for children.
dispatch_queue_t handlerQueue() {
  static const dispatch_queue_t queue = dispatch_queue_create(
      "nl.brelm.talmo.children",
      dispatch_queue_attr_make_with_qos_class(DISPATCH_QUEUE_SERIAL, QOS_CLASS_USER_INITIATED, 0));
  return queue;
}

void post(std::function<void()> work) {
  dispatch_async(handlerQueue(), ^{
    @autoreleasepool {
      work();
    }
  });
}

/// How a task that has ended did.
ChildTermination terminationOf(NSTask* task) {
  return {task.terminationReason == NSTaskTerminationReasonUncaughtSignal
              ? ChildTermination::Reason::uncaughtSignal
              : ChildTermination::Reason::exit,
          task.terminationStatus};
}

}  // namespace

MacChild::MacChild(NSTask* task) : task_(task), ending_(std::make_shared<ChildEnding>(post)) {}

std::optional<std::string> MacChild::launch() {
  const MutexLock lock(mutex_);
  if (wasLaunched_) return "the child has been started before";
  wasLaunched_ = true;
  // The task keeps its handler and so this object, until the child has ended.
  const std::shared_ptr<MacChild> self = shared_from_this();
  task_.terminationHandler = ^(NSTask*) {
    @autoreleasepool {
      // The end takes the handler away, and with it what the handler holds.
      const std::shared_ptr<MacChild> kept = self;
      kept->end();
    }
  };
  NSError* error = nil;
  isStarted_ = [task_ launchAndReturnError:&error];
  if (isStarted_) return std::nullopt;
  task_.terminationHandler = nil;
  return error != nil ? toText(error.localizedDescription) : "the child could not be started";
}

bool MacChild::isRunning() const {
  const MutexLock lock(mutex_);
  return isStarted_ && !ending_->isTold();
}

void MacChild::terminate() {
  const MutexLock lock(mutex_);
  // A task that was never launched raises; one that has ended takes no notice.
  if (isStarted_) [task_ terminate];
}

void MacChild::waitUntilExit() {
  {
    const MutexLock lock(mutex_);
    if (!isStarted_) return;
  }
  // It runs the run loop of this thread meanwhile, and returns before the handler or after it.
  [task_ waitUntilExit];
  end();
}

void MacChild::end() {
  ChildTermination termination;
  {
    const MutexLock lock(mutex_);
    termination = terminationOf(task_);
    task_.terminationHandler = nil;
  }
  ending_->tell(termination);
}

}  // namespace talmo
