// AppKit. Its classes belong to the main thread unless their documentation says otherwise.
// Sections by class, alphabetically; a class comes after the one that it is made from.
#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>

#define APPKIT_EXTERN extern "C"

NS_ASSUME_NONNULL_BEGIN

// --- NSRunningApplication ---------------------------------------------------------------------

// Safe on any thread; its properties change only with the main run loop ("NSRunningApplication").
API_AVAILABLE(macos(10.6)) @interface NSRunningApplication : NSObject

+ (nullable instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid;
@property(readonly, copy, nullable) NSString* bundleIdentifier;

@end

NS_ASSUME_NONNULL_END
