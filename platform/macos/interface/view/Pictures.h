#pragma once

#import <CoreGraphics/CoreGraphics.h>

#include "platform/Image.h"

namespace talmo {

/// The picture as one of the system's, which shares its pixels; the caller releases it. Null when
/// the system cannot make one. Any thread.
CGImageRef createSystemImage(const Image& image) CF_RETURNS_RETAINED;

}  // namespace talmo
