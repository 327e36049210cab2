#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// A stack of parts, on the ground that its role has.
@interface TLMStackPart : NSStackView <TLMPart>

- (instancetype)initWithView:(const talmo::View&)view
                   container:(talmo::ViewRole)container
                       maker:(talmo::MakePart)makePart;

@end
