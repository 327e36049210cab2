#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// The picture of a switch, whose knob slides to its other end when it changes.
@interface TLMTogglePart : NSView <TLMPart>

- (instancetype)initWithOn:(BOOL)isOn;

@end
