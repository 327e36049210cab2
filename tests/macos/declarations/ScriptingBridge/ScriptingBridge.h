// Scripting Bridge. The classes of an application's objects are made at run time.
#pragma once

#include <CoreServices/CoreServices.h>
#include <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

// --- SBObject ---------------------------------------------------------------------------------

// A reference, as the arrays of elements are, which are an NSMutableArray: nothing is asked of the
// application until a property that is a value is read.
API_AVAILABLE(macos(10.5)) @interface SBObject : NSObject<NSCoding>

// Of the last event that this very object sent; nil when it went well.
- (nullable NSError*)lastError API_AVAILABLE(macos(10.6));

@end

// --- SBApplication ----------------------------------------------------------------------------

API_AVAILABLE(macos(10.5)) @interface SBApplication : SBObject<NSCoding>

// Nil for an application that is not found or has no scripting dictionary.
- (nullable instancetype)initWithBundleIdentifier:(NSString*)ident;
@property(readonly, getter=isRunning) BOOL running;
// In ticks, sixty to the second; a long, not an NSTimeInterval.
@property long timeout;

@end

NS_ASSUME_NONNULL_END
