#pragma once

#import <Foundation/Foundation.h>

#include "platform/Network.h"

/// Follows tasks of the shared session, as the delegate of each. The session calls it on a queue of
/// its own; everything else happens on the queue that it is made with, a serial one.
@interface TLMTaskDelegate : NSObject <NSURLSessionDataDelegate>

- (instancetype)init NS_UNAVAILABLE;
- (instancetype)initWithQueue:(NSOperationQueue*)queue NS_DESIGNATED_INITIALIZER;

/// Follows `task`, which is not resumed yet, from its resumption, which is now. The completion is
/// called once, on the queue, unless `close` comes first. On the queue.
- (void)followTask:(NSURLSessionDataTask*)task completion:(talmo::Network::Completion)completion;

/// Ends what is under way; no completion is called any more. On the queue.
- (void)close;

@end
