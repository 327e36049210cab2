// Application Services: of it, the Accessibility interface (HIServices). Its functions may be
// called on any thread; those that ask an application wait for it.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>
#include <CoreServices/CoreServices.h>
#include <sys/types.h>

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

// Constant, unlike the other references of Core Foundation's kind.
typedef const struct CF_BRIDGED_TYPE(id) __AXUIElement* AXUIElementRef;

// Documented in <HIServices/AXError.h>; the others are negative.
typedef CF_ENUM(SInt32, AXError) {
  kAXErrorSuccess = 0,
};

// Documented in <HIServices/AXAttributeConstants.h>: macros.
#define kAXTitleAttribute CFSTR("AXTitle")
#define kAXWindowsAttribute CFSTR("AXWindows")

// A variable, and not a constant one.
CF_EXPORT CFStringRef kAXTrustedCheckOptionPrompt API_AVAILABLE(macos(10.9));

// A Boolean is an unsigned char, not a BOOL.
CF_EXPORT Boolean AXIsProcessTrusted(void) API_AVAILABLE(macos(10.4));
CF_EXPORT Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef _Nullable options)
    API_AVAILABLE(macos(10.9));

CF_EXPORT CFTypeID AXUIElementGetTypeID(void);
// Never null, whether there is such a process or not.
CF_EXPORT AXUIElementRef AXUIElementCreateApplication(pid_t pid);
// The value is the caller's to release, and is untouched when the result is an error.
CF_EXPORT AXError
AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                              CFTypeRef _Nullable* _Nonnull CF_RETURNS_RETAINED value);
// For this object only, not for others that stand for the same element; the process's default for
// the system-wide element.
CF_EXPORT AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds)
    API_AVAILABLE(macos(10.4));

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
