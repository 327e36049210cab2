#pragma once

#include "platform/macos/interface/view/TLMPart.h"

/// A headed list that scrolls below its heading when it is long or there is no room for it, and
/// keeps the highlighted row in sight.
@interface TLMSectionPart : NSStackView <TLMPart>

- (instancetype)initWithMaker:(talmo::MakePart)makePart;

@end
