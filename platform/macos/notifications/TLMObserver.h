#pragma once

#include <functional>

#import <Foundation/Foundation.h>

/// An observer by selector. Any thread.
@interface TLMObserver : NSObject

- (instancetype)init NS_UNAVAILABLE;
- (instancetype)initWithBlock:(std::function<void()>)block NS_DESIGNATED_INITIALIZER;

/// What a centre calls: submits the block to the main queue.
- (void)notificationWasPosted:(NSNotification*)notification;

/// From now on, seen from the main thread, the block does not run.
- (void)takeAwayBlock;

@end
