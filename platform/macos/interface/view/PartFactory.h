#pragma once

#include "platform/macos/interface/view/TLMPart.h"

namespace talmo {

/// The part that will show the view. The only one that knows all of them.
NSView<TLMPart>* makePart(const View& view, ViewRole container);

}  // namespace talmo
