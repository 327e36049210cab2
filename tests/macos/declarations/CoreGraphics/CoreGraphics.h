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

CF_ASSUME_NONNULL_BEGIN

// --- CGColor ----------------------------------------------------------------------------------

typedef struct CF_BRIDGED_TYPE(id) CGColor* CGColorRef;

// --- CGColorSpace -----------------------------------------------------------------------------

typedef struct CF_BRIDGED_TYPE(id) CGColorSpace* CGColorSpaceRef;

CG_EXTERN const CFStringRef kCGColorSpaceSRGB API_AVAILABLE(macos(10.5));

CG_EXTERN CGColorSpaceRef _Nullable CGColorSpaceCreateWithName(CFStringRef _Nullable name)
    API_AVAILABLE(macos(10.2)) CF_RETURNS_RETAINED;
// Null is allowed, as in the other releases of Core Graphics.
CG_EXTERN void CGColorSpaceRelease(CGColorSpaceRef _Nullable space) API_AVAILABLE(macos(10.0));

// --- CGDataProvider ---------------------------------------------------------------------------

typedef struct CF_BRIDGED_TYPE(id) CGDataProvider* CGDataProviderRef;

// Called with the info and the data that the provider was made with.
typedef void (*CGDataProviderReleaseDataCallback)(void* _Nullable info, const void* data,
                                                  size_t size);

// Does not copy the data. Not said: whether the callback is called where the result is null.
CG_EXTERN CGDataProviderRef _Nullable CGDataProviderCreateWithData(
    void* _Nullable info, const void* _Nullable data, size_t size,
    CGDataProviderReleaseDataCallback _Nullable releaseData)
    API_AVAILABLE(macos(10.0)) CF_RETURNS_RETAINED;
CG_EXTERN void CGDataProviderRelease(CGDataProviderRef _Nullable provider)
    API_AVAILABLE(macos(10.0));

// --- CGImage ----------------------------------------------------------------------------------

typedef struct CF_BRIDGED_TYPE(id) CGImage* CGImageRef;

// An enumeration; the info below is options, of which it is the lowest bits.
typedef CF_ENUM(uint32_t, CGImageAlphaInfo) {
  kCGImageAlphaLast = 3,
};
typedef CF_OPTIONS(uint32_t, CGBitmapInfo) {
  kCGBitmapAlphaInfoMask = 0x1F,
};
typedef CF_ENUM(int32_t, CGColorRenderingIntent) {
  kCGRenderingIntentDefault,
};

// Retains the provider and the colour space. Null when the numbers do not fit together.
CG_EXTERN CGImageRef _Nullable CGImageCreate(
    size_t width, size_t height, size_t bitsPerComponent, size_t bitsPerPixel, size_t bytesPerRow,
    CGColorSpaceRef _Nullable space, CGBitmapInfo bitmapInfo, CGDataProviderRef _Nullable provider,
    const CGFloat* _Nullable decode, bool shouldInterpolate, CGColorRenderingIntent intent)
    API_AVAILABLE(macos(10.0)) CF_RETURNS_RETAINED;

CF_ASSUME_NONNULL_END
