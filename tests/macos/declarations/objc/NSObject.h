// The root class, from the runtime's own headers as on a Mac.
#pragma once

#include <objc/objc.h>

// Documented in "Number Types": as wide as a pointer, and always `long`.
typedef long NSInteger;
typedef unsigned long NSUInteger;

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
#define NS_UNAVAILABLE __attribute__((unavailable))
#define NS_RETURNS_INNER_POINTER __attribute__((objc_returns_inner_pointer))
#define NS_SWIFT_SENDABLE

@class NSInvocation;
@class NSMethodSignature;
@class NSString;
struct _NSZone;
typedef struct _NSZone NSZone;

NS_ASSUME_NONNULL_BEGIN

@protocol NSObject

- (BOOL)isEqual:(nullable id)object;
- (Class)class __attribute__((availability(swift, unavailable)));
- (instancetype)self;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)respondsToSelector:(SEL)aSelector;
@property(readonly, copy) NSString* description;

@end

__attribute__((objc_root_class))
@interface NSObject<NSObject>

+ (void)initialize;
- (instancetype)init NS_DESIGNATED_INITIALIZER;
+ (instancetype)new;
+ (instancetype)alloc;
- (void)dealloc;
- (id)copy;
// Raises nothing, and is nil for a selector that the object does not respond to.
- (NSMethodSignature*)methodSignatureForSelector:(SEL)aSelector;
+ (Class)class;
+ (NSString*)description;

@end

NS_ASSUME_NONNULL_END
