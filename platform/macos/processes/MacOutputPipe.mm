#include "platform/macos/processes/MacOutputPipe.h"

#include <utility>

#include "platform/macos/Text.h"
#include "support/MutexLock.h"

namespace talmo {

MacOutputPipe::~MacOutputPipe() {
  @autoreleasepool {
    readingEnd_.readabilityHandler = nil;
    // The task keeps its pipe for as long as it lives itself.
    [readingEnd_ closeAndReturnError:nil];
  }
}

void MacOutputPipe::setReadabilityHandler(std::function<void(OutputPipe&)> handler) {
  std::shared_ptr<const Handler> before;
  if (handler) before = std::make_shared<const Handler>(std::move(handler));
  @autoreleasepool {
    const MutexLock lock(mutex_);
    handler_.swap(before);
    if (handler_ && !before) {
      const std::weak_ptr<MacOutputPipe> weak = weak_from_this();
      readingEnd_.readabilityHandler = ^(NSFileHandle*) {
        @autoreleasepool {
          if (const auto self = weak.lock()) self->callHandler();
        }
      };
    } else if (!handler_ && before) {
      readingEnd_.readabilityHandler = nil;
    }
  }
}

void MacOutputPipe::callHandler() {
  std::shared_ptr<const Handler> handler;
  {
    const MutexLock lock(mutex_);
    handler = handler_;
  }
  if (!handler) return;
  (*handler)(*this);
  const MutexLock lock(mutex_);
  // The system would go on telling of the end. Another handler has come to hear of it too.
  if (!isAtEnd_ || handler_ != handler) return;
  handler_ = nullptr;
  readingEnd_.readabilityHandler = nil;
}

std::string MacOutputPipe::availableData() {
  std::string piece;
  @autoreleasepool {
    @try {
      piece = toBytes(readingEnd_.availableData);
    } @catch (NSException*) {
      // How the file handle says that a descriptor cannot be read any more: that is its end.
    }
  }
  if (piece.empty()) {
    const MutexLock lock(mutex_);
    isAtEnd_ = true;
  }
  return piece;
}

std::string MacOutputPipe::readToEnd() {
  @autoreleasepool {
    return toBytes([readingEnd_ readDataToEndOfFileAndReturnError:nil]);
  }
}

}  // namespace talmo
