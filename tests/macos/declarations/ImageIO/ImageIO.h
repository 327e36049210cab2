// ImageIO: pictures from their files. Any thread, each source on one at a time.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>

#define IMAGEIO_EXTERN extern "C"

typedef struct CF_BRIDGED_TYPE(id) CGImageSource* CGImageSourceRef;

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

// --- CGImageProperties ------------------------------------------------------------------------

// CFNumbers, of the picture as it is stored, whatever its orientation.
IMAGEIO_EXTERN const CFStringRef kCGImagePropertyPixelHeight API_AVAILABLE(macos(10.4));
IMAGEIO_EXTERN const CFStringRef kCGImagePropertyPixelWidth API_AVAILABLE(macos(10.4));

// --- CGImageSource ----------------------------------------------------------------------------

// CFBooleans, both false unless they are given.
IMAGEIO_EXTERN const CFStringRef kCGImageSourceCreateThumbnailFromImageAlways
    API_AVAILABLE(macos(10.4));
IMAGEIO_EXTERN const CFStringRef kCGImageSourceCreateThumbnailWithTransform
    API_AVAILABLE(macos(10.4));
// A CFNumber.
IMAGEIO_EXTERN const CFStringRef kCGImageSourceThumbnailMaxPixelSize API_AVAILABLE(macos(10.4));

// Null for what is no picture; keeps the data.
IMAGEIO_EXTERN CGImageSourceRef _Nullable CGImageSourceCreateWithData(
    CFDataRef data, CFDictionaryRef _Nullable options) API_AVAILABLE(macos(10.4));
IMAGEIO_EXTERN CFDictionaryRef _Nullable CGImageSourceCopyPropertiesAtIndex(
    CGImageSourceRef isrc, size_t index, CFDictionaryRef _Nullable options)
    API_AVAILABLE(macos(10.4));
IMAGEIO_EXTERN CGImageRef _Nullable CGImageSourceCreateThumbnailAtIndex(
    CGImageSourceRef isrc, size_t index, CFDictionaryRef _Nullable options)
    API_AVAILABLE(macos(10.4));

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
