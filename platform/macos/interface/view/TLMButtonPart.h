#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// A button of any role, a row of a list included. It never takes the keyboard's focus: the keys
/// belong to the window.
@interface TLMButtonPart : NSView <TLMPart>

@property(nonatomic, readonly) talmo::ViewRole role;
/// The keyboard highlight is here.
@property(nonatomic, readonly) BOOL isHighlighted;

- (instancetype)initWithRole:(talmo::ViewRole)role maker:(talmo::MakePart)makePart;

/// Does what it is for, which may let go of it.
- (void)press;

@end
