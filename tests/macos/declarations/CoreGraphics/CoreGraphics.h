// Core Graphics (Quartz): geometry, pictures and events. Sections alphabetically, but for geometry.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <sys/types.h>

#define CG_EXTERN extern "C"

// --- Geometry ---------------------------------------------------------------------------------

// Inline functions on a Mac.
static inline CGPoint CGPointMake(CGFloat x, CGFloat y) {
  return {x, y};
}
static inline CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return {{x, y}, {width, height}};
}

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

typedef struct CF_BRIDGED_TYPE(id) CGColor* CGColorRef;
typedef struct CF_BRIDGED_TYPE(id) CGColorSpace* CGColorSpaceRef;
typedef struct CF_BRIDGED_TYPE(id) CGContext* CGContextRef;
typedef struct CF_BRIDGED_TYPE(id) CGDataProvider* CGDataProviderRef;
typedef struct CF_BRIDGED_TYPE(id) CGImage* CGImageRef;

// Documented in "CGImageAlphaInfo": an enumeration.
typedef CF_ENUM(uint32_t, CGImageAlphaInfo) {
  kCGImageAlphaNone,
  kCGImageAlphaPremultipliedLast,
  kCGImageAlphaPremultipliedFirst,
  kCGImageAlphaLast,
  kCGImageAlphaFirst,
  kCGImageAlphaNoneSkipLast,
  kCGImageAlphaNoneSkipFirst,
  kCGImageAlphaOnly,
};
// Documented in "CGBitmapInfo": options, of which the lowest bits are a CGImageAlphaInfo.
typedef CF_OPTIONS(uint32_t, CGBitmapInfo) {
  kCGBitmapAlphaInfoMask = 0x1F,
  kCGBitmapByteOrderDefault = 0 << 12,
  kCGBitmapByteOrder32Little = 2 << 12,
  kCGBitmapByteOrder32Big = 4 << 12,
};

// --- CGBitmapContext --------------------------------------------------------------------------

// Null for a combination that is not supported. The data is not copied and must outlive the
// context. The last parameter is a plain number, as it holds both of the two types above.
CG_EXTERN CGContextRef _Nullable CGBitmapContextCreate(
    void* _Nullable data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
    CGColorSpaceRef _Nullable space, uint32_t bitmapInfo) API_AVAILABLE(macos(10.0));

// --- CGColorSpace -----------------------------------------------------------------------------

CG_EXTERN const CFStringRef kCGColorSpaceSRGB API_AVAILABLE(macos(10.5));

CG_EXTERN CGColorSpaceRef _Nullable CGColorSpaceCreateWithName(CFStringRef _Nullable name)
    API_AVAILABLE(macos(10.2));
// Null is allowed, as in the other releases of Core Graphics.
CG_EXTERN void CGColorSpaceRelease(CGColorSpaceRef _Nullable space) API_AVAILABLE(macos(10.0));

// --- CGContext --------------------------------------------------------------------------------

// Documented in "CGInterpolationQuality": signed, as none of the others is.
typedef CF_ENUM(int32_t, CGInterpolationQuality) {
  kCGInterpolationDefault = 0,
  kCGInterpolationNone = 1,
  kCGInterpolationLow = 2,
  kCGInterpolationMedium = 4,
  kCGInterpolationHigh = 3,
};

CG_EXTERN void CGContextSetInterpolationQuality(CGContextRef _Nullable c,
                                                CGInterpolationQuality quality)
    API_AVAILABLE(macos(10.1));
CG_EXTERN void CGContextDrawImage(CGContextRef _Nullable c, CGRect rect, CGImageRef _Nullable image)
    API_AVAILABLE(macos(10.0));

// --- CGDataProvider ---------------------------------------------------------------------------

// Called with the info and the data that the provider was made with.
typedef void (*CGDataProviderReleaseDataCallback)(void* _Nullable info, const void* data,
                                                  size_t size);

// Does not copy the data. Not said: whether the callback is called where the result is null.
CG_EXTERN CGDataProviderRef _Nullable CGDataProviderCreateWithData(
    void* _Nullable info, const void* _Nullable data, size_t size,
    CGDataProviderReleaseDataCallback _Nullable releaseData) API_AVAILABLE(macos(10.0));
CG_EXTERN void CGDataProviderRelease(CGDataProviderRef _Nullable provider)
    API_AVAILABLE(macos(10.0));

// --- CGEvent ----------------------------------------------------------------------------------

typedef struct CF_BRIDGED_TYPE(id) __CGEvent* CGEventRef;
typedef struct CF_BRIDGED_TYPE(id) __CGEventSource* CGEventSourceRef;
typedef struct CF_BRIDGED_TYPE(id) __CGEventTapProxy* CGEventTapProxy;

// Documented in <CoreGraphics/CGRemoteOperation.h>.
typedef uint16_t CGKeyCode;

// Documented in <CoreGraphics/CGEventTypes.h>. Only the flags are options.
typedef CF_OPTIONS(uint64_t, CGEventFlags) {
  kCGEventFlagMaskShift = 0x00020000,
  kCGEventFlagMaskControl = 0x00040000,
  kCGEventFlagMaskCommand = 0x00100000,
};
typedef CF_ENUM(uint32_t, CGEventType) {
  kCGEventNull = 0,
  kCGEventKeyDown = 10,
  kCGEventKeyUp = 11,
  kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
  kCGEventTapDisabledByUserInput = 0xFFFFFFFF,
};
typedef CF_ENUM(uint32_t, CGEventTapLocation) {
  kCGHIDEventTap = 0,
  kCGSessionEventTap,
  kCGAnnotatedSessionEventTap,
};
typedef CF_ENUM(uint32_t, CGEventTapPlacement) {
  kCGHeadInsertEventTap = 0,
  kCGTailAppendEventTap,
};
typedef CF_ENUM(uint32_t, CGEventTapOptions) {
  kCGEventTapOptionDefault = 0,
  kCGEventTapOptionListenOnly = 1,
};
typedef CF_ENUM(int32_t, CGEventSourceStateID) {
  kCGEventSourceStatePrivate = -1,
  kCGEventSourceStateCombinedSessionState = 0,
  kCGEventSourceStateHIDSystemState = 1,
};
typedef uint64_t CGEventMask;

// The event is the caller's. What is returned is, for an active tap: the same event, without a
// reference of its own; a new one, which the caller releases; or null, and the event is gone. With
// the two notices about the tap the result does not matter.
typedef CGEventRef _Nullable (*CGEventTapCallBack)(CGEventTapProxy proxy, CGEventType type,
                                                   CGEventRef event, void* _Nullable userInfo);

// Null without the permission that the events of interest need. Enabled.
CG_EXTERN CFMachPortRef _Nullable CGEventTapCreate(
    CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
    CGEventMask eventsOfInterest, CGEventTapCallBack callback, void* _Nullable userInfo)
    API_AVAILABLE(macos(10.4));
CG_EXTERN void CGEventTapEnable(CFMachPortRef tap, bool enable) API_AVAILABLE(macos(10.4));

CG_EXTERN CGEventSourceRef _Nullable CGEventSourceCreate(CGEventSourceStateID stateID)
    API_AVAILABLE(macos(10.4));
CG_EXTERN CGEventRef _Nullable CGEventCreateKeyboardEvent(CGEventSourceRef _Nullable source,
                                                          CGKeyCode virtualKey, bool keyDown)
    API_AVAILABLE(macos(10.4));
CG_EXTERN void CGEventSetFlags(CGEventRef _Nullable event, CGEventFlags flags)
    API_AVAILABLE(macos(10.4));
CG_EXTERN void CGEventPostToPid(pid_t pid, CGEventRef _Nullable event) API_AVAILABLE(macos(10.11));

// --- CGImage ----------------------------------------------------------------------------------

typedef CF_ENUM(int32_t, CGColorRenderingIntent) {
  kCGRenderingIntentDefault,
};

// Retains the provider and the colour space. Null when the numbers do not fit together.
CG_EXTERN CGImageRef _Nullable CGImageCreate(
    size_t width, size_t height, size_t bitsPerComponent, size_t bitsPerPixel, size_t bytesPerRow,
    CGColorSpaceRef _Nullable space, CGBitmapInfo bitmapInfo, CGDataProviderRef _Nullable provider,
    const CGFloat* _Nullable decode, bool shouldInterpolate, CGColorRenderingIntent intent)
    API_AVAILABLE(macos(10.0));
// Zero for null.
CG_EXTERN size_t CGImageGetWidth(CGImageRef _Nullable image) API_AVAILABLE(macos(10.0));
CG_EXTERN size_t CGImageGetHeight(CGImageRef _Nullable image) API_AVAILABLE(macos(10.0));

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
