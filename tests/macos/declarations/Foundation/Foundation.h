// Foundation. Sections by class, alphabetically, but for what the others are made of, at the head;
// a class comes after the one that it is made from. Whether a result may be nil is part of each
// declaration; a result is autoreleased unless its name begins with alloc, new, copy or
// mutableCopy.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/CoreServices.h>
#include <dispatch/dispatch.h>
#include <objc/NSObject.h>
#include <sys/types.h>

#define FOUNDATION_EXPORT extern "C"
#define NS_INLINE static inline
#define NS_ENUM CF_ENUM
#define NS_OPTIONS CF_OPTIONS
#define NS_TYPED_ENUM
#define NS_VALID_UNTIL_END_OF_SCOPE __attribute__((objc_precise_lifetime))
#define NS_TYPED_EXTENSIBLE_ENUM

@class NSArray<__covariant ObjectType>;
@class NSBundle;
@class NSCoder;
@class NSData;
@class NSDate;
@class NSDictionary<__covariant KeyType, __covariant ObjectType>;
@class NSError;
@class NSFileHandle;
@class NSMetadataItem;
@class NSNotification;
@class NSNumber;
@class NSOperationQueue;
@class NSRunLoop;
@class NSSet<__covariant ObjectType>;
@class NSThread;
@class NSTimer;
@class NSURL;

NS_ASSUME_NONNULL_BEGIN

typedef double NSTimeInterval;
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;
typedef struct NSEdgeInsets {
  CGFloat top;
  CGFloat left;
  CGFloat bottom;
  CGFloat right;
} NSEdgeInsets;
typedef NSString* NSErrorDomain NS_TYPED_EXTENSIBLE_ENUM;
typedef NSString* NSErrorUserInfoKey NS_TYPED_EXTENSIBLE_ENUM;
typedef NSString* NSNotificationName NS_TYPED_EXTENSIBLE_ENUM;
typedef NSString* NSRunLoopMode NS_TYPED_EXTENSIBLE_ENUM;

// Nil only for no name; a selector is made of any other.
FOUNDATION_EXPORT SEL NSSelectorFromString(NSString* aSelectorName);

// Documented in "NSQualityOfService": the same numbers as the qos_class_t of the same names.
typedef NS_ENUM(NSInteger, NSQualityOfService) {
  NSQualityOfServiceUserInteractive = 0x21,
  NSQualityOfServiceUserInitiated = 0x19,
  NSQualityOfServiceUtility = 0x11,
  NSQualityOfServiceBackground = 0x09,
  NSQualityOfServiceDefault = -1,
};

typedef struct _NSRange {
  NSUInteger location;
  NSUInteger length;
} NSRange;

FOUNDATION_EXPORT const NSRect NSZeroRect;

// Inline functions on a Mac.
NS_INLINE NSPoint NSMakePoint(CGFloat x, CGFloat y) {
  return {x, y};
}
NS_INLINE NSSize NSMakeSize(CGFloat w, CGFloat h) {
  return {w, h};
}
NS_INLINE NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat w, CGFloat h) {
  return {{x, y}, {w, h}};
}
// From above counter-clockwise, which is not the order of the screen's edges elsewhere.
NS_INLINE NSEdgeInsets NSEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
  return {top, left, bottom, right};
}
// Negative numbers make it larger.
FOUNDATION_EXPORT NSRect NSInsetRect(NSRect aRect, CGFloat dX, CGFloat dY);

// --- What the others are made of --------------------------------------------------------------

@protocol NSCopying
- (id)copyWithZone:(nullable NSZone*)zone;
@end

@protocol NSMutableCopying
- (id)mutableCopyWithZone:(nullable NSZone*)zone;
@end

@protocol NSCoding
- (void)encodeWithCoder:(NSCoder*)coder;
- (nullable instancetype)initWithCoder:(NSCoder*)coder;
@end

@protocol NSSecureCoding <NSCoding>
@required
@property(class, readonly) BOOL supportsSecureCoding;
@end

typedef struct {
  unsigned long state;
  id __unsafe_unretained _Nullable* _Nullable itemsPtr;
  unsigned long* _Nullable mutationsPtr;
  unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)len;
@end

// Documented in "CFBridgingRelease": takes over the reference that a Create or Copy gave.
NS_INLINE id _Nullable CFBridgingRelease(CFTypeRef CF_CONSUMED _Nullable X) {
  return (__bridge_transfer id)X;
}

// Nil when no image that is loaded has a class of that name.
FOUNDATION_EXPORT Class _Nullable NSClassFromString(NSString* aClassName);

// --- NSAppleEventDescriptor -------------------------------------------------------------------

@interface NSAppleEventDescriptor : NSObject <NSCopying, NSSecureCoding>

+ (NSAppleEventDescriptor*)descriptorWithBundleIdentifier:(NSString*)bundleIdentifier
    API_AVAILABLE(macos(10.11));
// The descriptor's own; lives as long as it does.
@property(nullable, readonly) const AEDesc* aeDesc NS_RETURNS_INNER_POINTER;
@property(readonly) DescType descriptorType;
@property(readonly, copy) NSData* data;
// Each coerces, and is zero or nil for what cannot be.
@property(readonly) OSType enumCodeValue;
@property(readonly) OSType typeCodeValue;
@property(nullable, readonly, copy) NSString* stringValue;

@end

// --- NSArray ----------------------------------------------------------------------------------

@interface NSArray<__covariant ObjectType>
    : NSObject <NSCopying, NSMutableCopying, NSSecureCoding, NSFastEnumeration>

@property(readonly) NSUInteger count;
- (ObjectType)objectAtIndexedSubscript:(NSUInteger)idx API_AVAILABLE(macos(10.8));
+ (instancetype)array;
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nullable])objects
                           count:(NSUInteger)cnt;
@property(nullable, nonatomic, readonly) ObjectType firstObject API_AVAILABLE(macos(10.6));

@end

@interface NSMutableArray<ObjectType> : NSArray <ObjectType>

+ (instancetype)arrayWithCapacity:(NSUInteger)numItems;
- (void)addObject:(ObjectType)anObject;

@end

// --- NSBundle ---------------------------------------------------------------------------------

@interface NSBundle : NSObject

@property(class, readonly, strong) NSBundle* mainBundle;
@property(readonly, copy) NSURL* bundleURL API_AVAILABLE(macos(10.6));
@property(nullable, readonly, copy) NSString* resourcePath;
@property(nullable, readonly, copy) NSString* privateFrameworksPath;
- (nullable NSString*)pathForResource:(nullable NSString*)name ofType:(nullable NSString*)ext;
@property(nullable, readonly, copy) NSString* bundleIdentifier;
- (nullable id)objectForInfoDictionaryKey:(NSString*)key;

@end

// --- NSData -----------------------------------------------------------------------------------

@interface NSData : NSObject <NSCopying, NSMutableCopying, NSSecureCoding>

@property(readonly) NSUInteger length;
// Null for no bytes is allowed. Lives as long as the data.
@property(readonly) const void* bytes NS_RETURNS_INNER_POINTER;
- (BOOL)isEqualToData:(NSData*)other;
+ (instancetype)data;
// Copies the bytes.
+ (instancetype)dataWithBytes:(nullable const void*)bytes length:(NSUInteger)length;

@end

// --- NSDate -----------------------------------------------------------------------------------

@interface NSDate : NSObject <NSCopying, NSSecureCoding>

@property(readonly) NSTimeInterval timeIntervalSince1970;
// Negative for the past.
@property(readonly) NSTimeInterval timeIntervalSinceNow;

@end

// --- NSDictionary -----------------------------------------------------------------------------

@interface NSDictionary<__covariant KeyType, __covariant ObjectType>
    : NSObject <NSCopying, NSMutableCopying, NSSecureCoding, NSFastEnumeration>

@property(readonly) NSUInteger count;
- (nullable ObjectType)objectForKey:(KeyType)aKey;
- (nullable ObjectType)objectForKeyedSubscript:(KeyType)key API_AVAILABLE(macos(10.8));
+ (instancetype)dictionary;
+ (instancetype)dictionaryWithObjects:(const ObjectType _Nonnull[_Nullable])objects
                              forKeys:(const KeyType<NSCopying> _Nonnull[_Nullable])keys
                                count:(NSUInteger)cnt;

@end

// --- NSError ----------------------------------------------------------------------------------

FOUNDATION_EXPORT NSErrorDomain const NSCocoaErrorDomain;

// A method that has NSError** as its last parameter fails by its result, never by the error alone
// ("Error Handling Programming Guide"); the error may be left as it was.
@interface NSError : NSObject <NSCopying, NSSecureCoding>

+ (instancetype)errorWithDomain:(NSErrorDomain)domain
                           code:(NSInteger)code
                       userInfo:(nullable NSDictionary<NSErrorUserInfoKey, id>*)dict;
@property(readonly) NSInteger code;
@property(readonly, copy) NSDictionary<NSErrorUserInfoKey, id>* userInfo;
@property(readonly, copy) NSString* localizedDescription;

@end

// Documented in <Foundation/FoundationErrors.h>.
enum : NSInteger {
  NSFileNoSuchFileError = 4,
};

// --- NSException ------------------------------------------------------------------------------

typedef NSString* NSExceptionName NS_TYPED_EXTENSIBLE_ENUM;

@interface NSException : NSObject <NSCopying, NSSecureCoding>

@property(readonly, copy) NSExceptionName name;
@property(nullable, readonly, copy) NSString* reason;

@end

// --- NSFileHandle -----------------------------------------------------------------------------

@interface NSFileHandle : NSObject <NSSecureCoding>

// Empty at the end of the file; raises for a descriptor that fails.
@property(readonly, copy) NSData* availableData;
@property(class, readonly, strong) NSFileHandle* fileHandleWithNullDevice;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
// Nil at failure; empty at the end.
- (nullable NSData*)readDataToEndOfFileAndReturnError:(out NSError* _Nullable* _Nullable)error
    API_AVAILABLE(macos(10.15));
- (BOOL)closeAndReturnError:(out NSError* _Nullable* _Nullable)error API_AVAILABLE(macos(10.15));
// Called on a queue of the system's own; again and again with empty data at the end of the file,
// until it is set to nil.
@property(nullable, copy) void (^readabilityHandler)(NSFileHandle*) API_AVAILABLE(macos(10.7));

@end

// --- NSFileManager ----------------------------------------------------------------------------

@interface NSFileManager : NSObject

@property(class, readonly, strong) NSFileManager* defaultManager;
- (BOOL)fileExistsAtPath:(NSString*)path;

@end

// --- NSInvocation -----------------------------------------------------------------------------

@interface NSInvocation : NSObject

+ (NSInvocation*)invocationWithMethodSignature:(NSMethodSignature*)sig;
@property(readonly, retain) NSMethodSignature* methodSignature;
@property SEL selector;
// Copies as many bytes as the result is long; an object among them is not retained.
- (void)getReturnValue:(void*)retLoc;
- (void)invokeWithTarget:(id)target;

@end

// --- NSMetadataItem ---------------------------------------------------------------------------

API_AVAILABLE(macos(10.4)) @interface NSMetadataItem : NSObject

// Nil for what Spotlight does not know.
- (nullable instancetype)initWithURL:(NSURL*)url NS_DESIGNATED_INITIALIZER
    API_AVAILABLE(macos(10.9));
- (nullable id)valueForAttribute:(NSString*)key;

@end

// --- NSMethodSignature ------------------------------------------------------------------------

@interface NSMethodSignature : NSObject

// With the receiver and the selector.
@property(readonly) NSUInteger numberOfArguments;
@property(readonly) const char* methodReturnType NS_RETURNS_INNER_POINTER;
@property(readonly) NSUInteger methodReturnLength;

@end

// --- NSNotification ---------------------------------------------------------------------------

@interface NSNotification : NSObject <NSCopying, NSCoding>

@property(readonly, copy) NSNotificationName name;
@property(nullable, readonly, retain) id object;
@property(nullable, readonly, copy) NSDictionary* userInfo;

@end

// --- NSNotificationCenter ---------------------------------------------------------------------

@interface NSNotificationCenter : NSObject

@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
// The observer is not retained; since 10.11 it need not be removed.
- (void)addObserver:(id)observer
           selector:(SEL)aSelector
               name:(nullable NSNotificationName)aName
             object:(nullable id)anObject;
- (void)postNotificationName:(NSNotificationName)aName object:(nullable id)anObject;
- (void)postNotificationName:(NSNotificationName)aName
                      object:(nullable id)anObject
                    userInfo:(nullable NSDictionary*)aUserInfo;
- (void)removeObserver:(id)observer;
- (void)removeObserver:(id)observer
                  name:(nullable NSNotificationName)aName
                object:(nullable id)anObject;
// The block is copied and kept until its observer is removed. A nil queue is the poster's thread.
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)obj
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block
    API_AVAILABLE(macos(10.6));

@end

// --- NSDistributedNotificationCenter ----------------------------------------------------------

// Delivers on the main thread, in the common modes of its run loop; while the application is not
// active it holds back what is not to be delivered immediately ("suspended"). The object is a
// string. Safe on any thread ("Threading Programming Guide").
@interface NSDistributedNotificationCenter : NSNotificationCenter

+ (NSDistributedNotificationCenter*)defaultCenter;
- (void)addObserver:(id)observer
           selector:(SEL)aSelector
               name:(nullable NSNotificationName)aName
             object:(nullable NSString*)anObject;
- (void)postNotificationName:(NSNotificationName)aName object:(nullable NSString*)anObject;
- (void)removeObserver:(id)observer
                  name:(nullable NSNotificationName)aName
                object:(nullable NSString*)anObject;

@end

// --- NSNull -----------------------------------------------------------------------------------

@interface NSNull : NSObject <NSCopying, NSSecureCoding>

+ (NSNull*)null;

@end

// --- NSNumber ---------------------------------------------------------------------------------

@interface NSValue : NSObject <NSCopying, NSSecureCoding>

@end

@interface NSNumber : NSValue

@property(readonly) unsigned int unsignedIntValue;
@property(readonly) double doubleValue;
@property(readonly) NSInteger integerValue API_AVAILABLE(macos(10.5));
@property(readonly, copy) NSString* stringValue;

// What the @-literals call.
+ (NSNumber*)numberWithChar:(char)value;
+ (NSNumber*)numberWithInt:(int)value;
+ (NSNumber*)numberWithUnsignedInt:(unsigned int)value;
+ (NSNumber*)numberWithLong:(long)value;
+ (NSNumber*)numberWithUnsignedLong:(unsigned long)value;
+ (NSNumber*)numberWithLongLong:(long long)value;
+ (NSNumber*)numberWithUnsignedLongLong:(unsigned long long)value;
+ (NSNumber*)numberWithFloat:(float)value;
+ (NSNumber*)numberWithDouble:(double)value;
+ (NSNumber*)numberWithBool:(BOOL)value;
+ (NSNumber*)numberWithInteger:(NSInteger)value API_AVAILABLE(macos(10.5));
+ (NSNumber*)numberWithUnsignedInteger:(NSUInteger)value API_AVAILABLE(macos(10.5));

@end

// --- NSOperation ------------------------------------------------------------------------------

API_AVAILABLE(macos(10.5)) @interface NSOperation : NSObject
@end

API_AVAILABLE(macos(10.6)) @interface NSBlockOperation : NSOperation

+ (instancetype)blockOperationWithBlock:(void (^)(void))block;

@end

// --- NSOperationQueue -------------------------------------------------------------------------

// Drains an autorelease pool of its own after each operation. Operations of one priority that are
// ready when they are added begin in the order in which they were ("NSOperationQueue").
API_AVAILABLE(macos(10.5)) @interface NSOperationQueue : NSObject

@property(class, readonly, strong) NSOperationQueue* mainQueue API_AVAILABLE(macos(10.6));
@property NSInteger maxConcurrentOperationCount;
@property(nullable, copy) NSString* name API_AVAILABLE(macos(10.6));
- (void)addOperationWithBlock:(void (^)(void))block API_AVAILABLE(macos(10.6));
- (void)addOperations:(NSArray<NSOperation*>*)ops
    waitUntilFinished:(BOOL)wait API_AVAILABLE(macos(10.6));

@end

// --- NSPipe -----------------------------------------------------------------------------------

@interface NSPipe : NSObject

@property(readonly, retain) NSFileHandle* fileHandleForReading;
@property(readonly, retain) NSFileHandle* fileHandleForWriting;
+ (NSPipe*)pipe;

@end

// --- NSProcessInfo ----------------------------------------------------------------------------

@interface NSProcessInfo : NSObject

@property(class, readonly, strong) NSProcessInfo* processInfo;
@property(readonly, copy) NSDictionary<NSString*, NSString*>* environment;
@property(readonly, copy) NSArray<NSString*>* arguments;
@property(readonly) int processIdentifier;

@end

// --- NSRunLoop --------------------------------------------------------------------------------

FOUNDATION_EXPORT NSRunLoopMode const NSDefaultRunLoopMode;
FOUNDATION_EXPORT NSRunLoopMode const NSRunLoopCommonModes API_AVAILABLE(macos(10.5));

// Not safe on other threads than its own ("NSRunLoop"), other than CFRunLoop.
@interface NSRunLoop : NSObject

@property(class, readonly, strong) NSRunLoop* currentRunLoop;
@property(class, readonly, strong) NSRunLoop* mainRunLoop API_AVAILABLE(macos(10.5));
// The loop keeps the timer until it is invalidated.
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode;
// Safe on any thread; the block runs on the loop's own, and is copied.
- (void)performInModes:(NSArray<NSRunLoopMode>*)modes
                 block:(NS_SWIFT_SENDABLE void (^)(void))block API_AVAILABLE(macos(10.12));

@end

// --- NSSet ------------------------------------------------------------------------------------

@interface NSSet<__covariant ObjectType>
    : NSObject <NSCopying, NSMutableCopying, NSSecureCoding, NSFastEnumeration>

@property(readonly) NSUInteger count;

@end

// --- NSString ---------------------------------------------------------------------------------

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding {
  NSASCIIStringEncoding = 1,
  NSUTF8StringEncoding = 4,
};

@interface NSString : NSObject <NSCopying, NSMutableCopying, NSSecureCoding>

// In UTF-16 units.
@property(readonly) NSUInteger length;
+ (instancetype)string;
- (nullable instancetype)initWithBytes:(const void*)bytes
                                length:(NSUInteger)len
                              encoding:(NSStringEncoding)encoding;
- (nullable instancetype)initWithData:(NSData*)data encoding:(NSStringEncoding)encoding;
// Null where the text cannot be written so, as with a lone surrogate. Lives as long as the pool.
@property(nullable, readonly) const char* UTF8String NS_RETURNS_INNER_POINTER;
// Nil where the text cannot be written so and nothing may be lost.
- (nullable NSData*)dataUsingEncoding:(NSStringEncoding)encoding allowLossyConversion:(BOOL)lossy;
- (nullable NSData*)dataUsingEncoding:(NSStringEncoding)encoding;
- (BOOL)isEqualToString:(NSString*)aString;
@property(readonly) double doubleValue;
@property(readonly) NSInteger integerValue API_AVAILABLE(macos(10.5));

@end

// --- NSTask -----------------------------------------------------------------------------------

typedef NS_ENUM(NSInteger, NSTaskTerminationReason) {
  NSTaskTerminationReasonExit = 1,
  NSTaskTerminationReasonUncaughtSignal = 2,
};

@interface NSTask : NSObject

- (instancetype)init NS_DESIGNATED_INITIALIZER;
@property(nullable, copy) NSURL* executableURL API_AVAILABLE(macos(10.13));
@property(nullable, copy) NSArray<NSString*>* arguments;
// Nil means this process's own.
@property(nullable, copy) NSDictionary<NSString*, NSString*>* environment;
// A pipe or a file handle. Nil means this process's own.
@property(nullable, retain) id standardInput;
@property(nullable, retain) id standardOutput;
@property(nullable, retain) id standardError;
// Raises instead when this task was launched before.
- (BOOL)launchAndReturnError:(out NSError* _Nullable* _Nullable)error API_AVAILABLE(macos(10.13));
// Does nothing to a task that has ended; raises for one that was not launched.
- (void)terminate;
@property(readonly) int processIdentifier;
@property(readonly, getter=isRunning) BOOL running;
// Both raise while the task runs.
@property(readonly) int terminationStatus;
@property(readonly) NSTaskTerminationReason terminationReason API_AVAILABLE(macos(10.6));
// Called on a queue of the system's own, not surely after the last of the output was read.
@property(nullable, copy) void (^terminationHandler)(NSTask*) API_AVAILABLE(macos(10.7));
@property NSQualityOfService qualityOfService API_AVAILABLE(macos(10.10));
- (void)waitUntilExit;

@end

// --- NSThread ---------------------------------------------------------------------------------

@interface NSThread : NSObject

@property(class, readonly) BOOL isMainThread API_AVAILABLE(macos(10.5));
// Becomes the name that a debugger shows only when it is set before the thread starts, or on it.
@property(nullable, copy) NSString* name API_AVAILABLE(macos(10.5));
// Cannot be changed once the thread has started.
@property NSQualityOfService qualityOfService API_AVAILABLE(macos(10.10));
- (instancetype)init NS_DESIGNATED_INITIALIZER API_AVAILABLE(macos(10.5));
- (instancetype)initWithBlock:(void (^)(void))block API_AVAILABLE(macos(10.12));
- (void)start API_AVAILABLE(macos(10.5));

@end

// --- NSTimer ----------------------------------------------------------------------------------

@interface NSTimer : NSObject

// In the default mode of the current run loop, which keeps it until it is invalidated. An interval
// that is not positive is a tenth of a millisecond.
+ (NSTimer*)scheduledTimerWithTimeInterval:(NSTimeInterval)interval
                                   repeats:(BOOL)repeats
                                     block:(NS_SWIFT_SENDABLE void (^)(NSTimer* timer))block
    API_AVAILABLE(macos(10.12));
@property NSTimeInterval tolerance API_AVAILABLE(macos(10.9));
// Must be sent on the thread whose run loop has the timer.
- (void)invalidate;

@end

NS_ASSUME_NONNULL_END

#include <Foundation/NSURL.h>

NS_ASSUME_NONNULL_BEGIN

// --- NSUserDefaults ---------------------------------------------------------------------------

@interface NSUserDefaults : NSObject

@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
// Nil for the names of the program's own and of the global domain.
- (nullable instancetype)initWithSuiteName:(nullable NSString*)suitename
    API_AVAILABLE(macos(10.9))NS_DESIGNATED_INITIALIZER;
- (void)removePersistentDomainForName:(NSString*)domainName;
- (nullable id)objectForKey:(NSString*)defaultName;
// Raises for what is no property list.
- (void)setObject:(nullable id)value forKey:(NSString*)defaultName;
- (void)removeObjectForKey:(NSString*)defaultName;
- (nullable NSString*)stringForKey:(NSString*)defaultName;
// No for a key that is not there; reads numbers and the texts of yes and no too.
- (BOOL)boolForKey:(NSString*)defaultName;
- (void)setBool:(BOOL)value forKey:(NSString*)defaultName;

@end

NS_ASSUME_NONNULL_END
