#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// One of the steps of something.
@interface TLMSegmentPart : NSView <TLMPart>

- (instancetype)init;

@end
