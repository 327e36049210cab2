#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// A few bars that dance while something sounds, as long as they are seen and the person has not
/// asked for less motion.
@interface TLMEqualizerPart : NSView <TLMPart>

- (instancetype)init;

@end
