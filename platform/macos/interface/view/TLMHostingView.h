#pragma once

#include <functional>

#import <AppKit/AppKit.h>

#include "platform/Size.h"
#include "platform/View.h"

/// Shows a view of the program with views of AppKit, on a ground that lets through what is behind
/// the window; it is the window's content view, so that the window has the ground's shape. A part
/// that keeps its identity, kind and role keeps its view, and with it hover and motion. Main thread
/// only.
@interface TLMHostingView : NSVisualEffectView

/// Called when the content's ideal size has become another one, before `show:` returns. May be
/// empty.
@property(nonatomic) std::function<void(talmo::Size)> onSizeChange;

/// The content is laid out for that width, in points.
- (instancetype)initWithWidth:(CGFloat)width;

- (void)show:(const talmo::View&)content;

/// Does what the content's primary button is for; NO when it has none.
- (BOOL)pressPrimaryButton;

@end
