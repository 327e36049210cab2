// The root class, from the runtime's own headers as on a Mac.
#pragma once

#include <objc/objc.h>

// Documented in "Number Types": as wide as a pointer, and always `long`.
typedef long NSInteger;
typedef unsigned long NSUInteger;

#define NSIntegerMax __LONG_MAX__
#define NSUIntegerMax (__LONG_MAX__ * 2UL + 1UL)

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
#define NS_REQUIRES_SUPER __attribute__((objc_requires_super))
#define NS_UNAVAILABLE __attribute__((unavailable))
#define NS_RETURNS_RETAINED __attribute__((ns_returns_retained))
#define NS_RETURNS_INNER_POINTER __attribute__((objc_returns_inner_pointer))
#define NS_NOESCAPE __attribute__((noescape))
#define NS_SWIFT_SENDABLE
#define NS_SWIFT_UI_ACTOR

@class NSInvocation;
@class NSMethodSignature;
@class NSString;
struct _NSZone;
typedef struct _NSZone NSZone;

NS_ASSUME_NONNULL_BEGIN

@protocol NSObject

- (BOOL)isEqual:(nullable id)object;
@property(readonly) NSUInteger hash;
@property(readonly) Class superclass;
- (Class)class __attribute__((availability(swift, unavailable)));
- (instancetype)self;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)isMemberOfClass:(Class)aClass;
- (BOOL)conformsToProtocol:(Protocol*)aProtocol;
- (BOOL)respondsToSelector:(SEL)aSelector;
@property(readonly, copy) NSString* description;
@optional
@property(readonly, copy) NSString* debugDescription;

@end

__attribute__((objc_root_class))
@interface NSObject<NSObject>

+ (void)initialize;
- (instancetype)init NS_DESIGNATED_INITIALIZER;
+ (instancetype)new;
+ (instancetype)alloc;
- (void)dealloc;
- (id)copy;
- (id)mutableCopy;
// Raises nothing, and is nil for a selector that the object does not respond to.
- (NSMethodSignature*)methodSignatureForSelector:(SEL)aSelector;
+ (BOOL)instancesRespondToSelector:(SEL)aSelector;
+ (Class)superclass;
+ (Class)class;
+ (NSString*)description;

@end

NS_ASSUME_NONNULL_END
