#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// A symbol of the system's family or one of the program's own images. One that is not there leaves
/// its place free.
@interface TLMSymbolPart : NSView <TLMPart>

- (instancetype)initWithView:(const talmo::View&)view container:(talmo::ViewRole)container;

@end
