#pragma once

#import <Foundation/Foundation.h>

#include "platform/Network.h"

/// Follows the tasks of one session. Belongs to the session's delegate queue, a serial one, but for
/// its creation.
@interface TLMSessionDelegate : NSObject <NSURLSessionDataDelegate>

/// Follows `task`, which is not resumed yet. The completion is called once, on the queue, unless
/// `close` comes first.
- (void)followTask:(NSURLSessionTask*)task completion:(talmo::Network::Completion)completion;

/// No completion is called any more.
- (void)close;

@end
