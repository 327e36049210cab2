#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// A picture: an artwork fills its place, an application's icon is all in it.
@interface TLMPicturePart : NSView <TLMPart>

- (instancetype)initWithRole:(talmo::ViewRole)role;

@end
