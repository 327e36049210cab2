#pragma once

#import <AppKit/AppKit.h>

#include "platform/View.h"

/// A view of AppKit that shows one part of a view of the program. Main thread only.
@protocol TLMPart <NSObject>

/// Takes in the part's next value, which has the identity, kind and role of the one before.
- (void)show:(const talmo::View&)view;

@end

namespace talmo {

/// Makes the part that will show a view in a stack or button whose role is `container`.
using MakePart = NSView<TLMPart>* (*)(const View& view, ViewRole container);

}  // namespace talmo
