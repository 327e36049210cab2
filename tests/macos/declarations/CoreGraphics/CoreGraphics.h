// Core Graphics (Quartz): geometry and events.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#define CG_EXTERN extern "C"

// --- Geometry ---------------------------------------------------------------------------------

CG_EXTERN const CGRect CGRectZero API_AVAILABLE(macos(10.0));

// Inline functions on a Mac.
static inline CGPoint CGPointMake(CGFloat x, CGFloat y) {
  return {x, y};
}
static inline CGSize CGSizeMake(CGFloat width, CGFloat height) {
  return {width, height};
}
static inline CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return {{x, y}, {width, height}};
}
