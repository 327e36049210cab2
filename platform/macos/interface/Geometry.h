#pragma once

#import <Foundation/Foundation.h>

#include "platform/Rect.h"

namespace talmo {

// Both have the origin in the lower left corner of the first screen, and y upwards.

inline Rect fromSystem(NSRect rect) {
  return {
      .x = rect.origin.x, .y = rect.origin.y, .width = rect.size.width, .height = rect.size.height};
}

inline NSRect toSystem(const Rect& rect) {
  return {{rect.x, rect.y}, {rect.width, rect.height}};
}

}  // namespace talmo
