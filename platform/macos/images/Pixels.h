#pragma once

#import <AppKit/AppKit.h>
#include <CoreGraphics/CoreGraphics.h>
#include <optional>

#include "platform/Image.h"

namespace talmo {

// Pictures of the system as values of the program, in sRGB. Any thread, each picture on one at a
// time. Nothing for null, for what is larger than any artwork, and when there is no memory for it.

/// In the picture's own size.
std::optional<Image> pixelsOf(CGImageRef picture);

/// What of the picture's representations suits its size best, in the size of that.
std::optional<Image> pixelsOf(NSImage* picture);

/// Of a square picture such as an icon, so many pixels wide and high.
std::optional<Image> pixelsOf(NSImage* picture, int pixels);

}  // namespace talmo
