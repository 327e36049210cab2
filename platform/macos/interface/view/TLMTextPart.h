#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// A text. All but a body stay on one line, are cut at their end, and then say all of themselves
/// where the mouse rests on them.
@interface TLMTextPart : NSTextField <TLMPart>

- (instancetype)initWithRole:(talmo::ViewRole)role container:(talmo::ViewRole)container;

/// Has a body break its lines at the width that it has been given, which says how high it is.
- (void)wrapAtOwnWidth;

@end
