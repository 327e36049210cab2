#include "platform/macos/notifications/TLMObserver.h"

#include <optional>
#include <utility>

#include <dispatch/dispatch.h>

#include "platform/macos/notifications/ObserverBlock.h"

@implementation TLMObserver {
  std::optional<talmo::ObserverBlock> _block;
}

- (instancetype)initWithBlock:(std::function<void()>)block {
  self = [super init];
  if (self != nil) _block.emplace(std::move(block));
  return self;
}

- (void)notificationWasPosted:(NSNotification*)notification {
  dispatch_async(dispatch_get_main_queue(), ^{
    @autoreleasepool {
      self->_block->run();
    }
  });
}

- (void)takeAwayBlock {
  _block->takeAway();
}

@end
