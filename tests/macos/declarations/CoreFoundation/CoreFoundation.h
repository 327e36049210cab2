// Core Foundation. Who owns a result is in the function's name, "Memory Management Programming
// Guide for Core Foundation": Create and Copy give one reference away, Get gives none. The
// pragmas below tell ARC that the functions between them keep to it.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <objc/NSObject.h>
#include <os/availability.h>

#define CF_EXPORT extern "C"
#define CF_BRIDGED_TYPE(T) __attribute__((objc_bridge(T)))
#define CF_BRIDGED_MUTABLE_TYPE(T) __attribute__((objc_bridge_mutable(T)))
#define CF_RETURNS_RETAINED __attribute__((cf_returns_retained))
#define CF_RETURNS_NOT_RETAINED __attribute__((cf_returns_not_retained))
#define CF_CONSUMED __attribute__((cf_consumed))
#define CF_IMPLICIT_BRIDGING_ENABLED _Pragma("clang arc_cf_code_audited begin")
#define CF_IMPLICIT_BRIDGING_DISABLED _Pragma("clang arc_cf_code_audited end")
#define CF_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define CF_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")

// As a Mac has them for C++: an enumeration is a type of its own, options are the plain integer,
// which is why options may be combined with | without a cast and enumerations may not.
#define CF_ENUM(type, name)                                        \
  enum __attribute__((enum_extensibility(open))) name : type name; \
  enum name : type
#define CF_OPTIONS(type, name) \
  type name;                   \
  enum __attribute__((flag_enum, enum_extensibility(open))) : type

// Documented in "Number Types"; none is as wide as an NSInteger but the index.
typedef unsigned char Boolean;
typedef unsigned int UInt32;
typedef signed int SInt32;
typedef SInt32 OSStatus;
typedef UInt32 FourCharCode;
typedef FourCharCode OSType;

typedef unsigned long CFTypeID;
typedef unsigned long CFHashCode;
typedef long CFIndex;
typedef double CFTimeInterval;

typedef const CF_BRIDGED_TYPE(id) void* CFTypeRef;
typedef const struct CF_BRIDGED_TYPE(NSString) __CFString* CFStringRef;
typedef const struct CF_BRIDGED_TYPE(NSDictionary) __CFDictionary* CFDictionaryRef;
typedef const struct CF_BRIDGED_TYPE(NSData) __CFData* CFDataRef;
typedef const struct CF_BRIDGED_TYPE(id) __CFAllocator* CFAllocatorRef;
// A run loop and its sources are bridged to no class; a port is an NSMachPort.
typedef struct CF_BRIDGED_MUTABLE_TYPE(id) __CFRunLoop* CFRunLoopRef;
typedef struct CF_BRIDGED_MUTABLE_TYPE(id) __CFRunLoopSource* CFRunLoopSourceRef;
typedef struct CF_BRIDGED_MUTABLE_TYPE(NSMachPort) __CFMachPort* CFMachPortRef;

typedef CFStringRef CFRunLoopMode;
// Documented in "CFRunLoopRunResult".
typedef CF_ENUM(SInt32, CFRunLoopRunResult) {
  kCFRunLoopRunFinished = 1,
  kCFRunLoopRunStopped = 2,
  kCFRunLoopRunTimedOut = 3,
  kCFRunLoopRunHandledSource = 4,
};

// Documented in "CFRunLoopSourceContext", of version 0; what is null is not called.
typedef struct {
  CFIndex version;
  void* _Null_unspecified info;
  const void* _Null_unspecified (*_Null_unspecified retain)(const void* _Null_unspecified info);
  void (*_Null_unspecified release)(const void* _Null_unspecified info);
  CFStringRef _Null_unspecified (*_Null_unspecified copyDescription)(
      const void* _Null_unspecified info);
  Boolean (*_Null_unspecified equal)(const void* _Null_unspecified info1,
                                     const void* _Null_unspecified info2);
  CFHashCode (*_Null_unspecified hash)(const void* _Null_unspecified info);
  void (*_Null_unspecified schedule)(void* _Null_unspecified info,
                                     CFRunLoopRef _Null_unspecified rl,
                                     CFRunLoopMode _Null_unspecified mode);
  void (*_Null_unspecified cancel)(void* _Null_unspecified info, CFRunLoopRef _Null_unspecified rl,
                                   CFRunLoopMode _Null_unspecified mode);
  void (*_Null_unspecified perform)(void* _Null_unspecified info);
} CFRunLoopSourceContext;

// A constant string of the compiler's; never released.
#define CFSTR(cStr) \
  (reinterpret_cast<CFStringRef>(__builtin___CFStringMakeConstantString("" cStr "")))

// Documented in "Core Graphics", CGFloat: a double on every Mac of today.
typedef double CGFloat;
struct CGPoint {
  CGFloat x;
  CGFloat y;
};
typedef struct CGPoint CGPoint;
struct CGSize {
  CGFloat width;
  CGFloat height;
};
typedef struct CGSize CGSize;
struct CGRect {
  CGPoint origin;
  CGSize size;
};
typedef struct CGRect CGRect;

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

CF_EXPORT const CFAllocatorRef kCFAllocatorDefault;

// Null is an error that ends the process, for both.
CF_EXPORT CFTypeRef CFRetain(CFTypeRef cf);
CF_EXPORT void CFRelease(CFTypeRef cf);
CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef cf);

// --- CFRunLoop --------------------------------------------------------------------------------

CF_EXPORT const CFRunLoopMode kCFRunLoopCommonModes;
CF_EXPORT const CFRunLoopMode kCFRunLoopDefaultMode;

CF_EXPORT CFRunLoopRef CFRunLoopGetCurrent(void);
CF_EXPORT void CFRunLoopRun(void);
CF_EXPORT CFRunLoopRunResult CFRunLoopRunInMode(CFRunLoopMode mode, CFTimeInterval seconds,
                                                Boolean returnAfterSourceHandled);
// Safe from other threads, as CFRunLoopWakeUp is. A stop before the loop runs is lost.
CF_EXPORT void CFRunLoopStop(CFRunLoopRef rl);
CF_EXPORT void CFRunLoopWakeUp(CFRunLoopRef rl);
CF_EXPORT void CFRunLoopAddSource(CFRunLoopRef rl, CFRunLoopSourceRef source, CFRunLoopMode mode);
CF_EXPORT void CFRunLoopRemoveSource(CFRunLoopRef rl, CFRunLoopSourceRef source,
                                     CFRunLoopMode mode);
// The mode is any object of the type, therefore a CFTypeRef.
CF_EXPORT void CFRunLoopPerformBlock(CFRunLoopRef rl, CFTypeRef mode, void (^block)(void))
    API_AVAILABLE(macos(10.6));

// The context is copied.
CF_EXPORT CFRunLoopSourceRef CFRunLoopSourceCreate(CFAllocatorRef _Nullable allocator,
                                                   CFIndex order, CFRunLoopSourceContext* context);

// --- CFMachPort -------------------------------------------------------------------------------

// Null when the port is invalid.
CF_EXPORT CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef _Nullable allocator,
                                                           CFMachPortRef port, CFIndex order);
CF_EXPORT void CFMachPortInvalidate(CFMachPortRef port);

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
