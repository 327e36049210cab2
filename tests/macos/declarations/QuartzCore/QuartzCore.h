// Core Animation. A layer that a view of AppKit owns belongs to the main thread. Sections by class,
// alphabetically; a class comes after the one that it is made from.
#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <Foundation/Foundation.h>

#define CA_EXTERN extern "C"

@class CALayer;
@class CAMediaTimingFunction;

NS_ASSUME_NONNULL_BEGIN

typedef NSString* CALayerContentsFilter NS_TYPED_ENUM;
typedef NSString* CALayerContentsGravity NS_TYPED_ENUM;
typedef NSString* CAMediaTimingFunctionName NS_TYPED_ENUM;

// --- CAMediaTiming ----------------------------------------------------------------------------

// Times in seconds. The repeat count is a float, and infinite as HUGE_VALF.
@protocol CAMediaTiming

@property CFTimeInterval duration;
@property float repeatCount;
@property BOOL autoreverses;
@property CFTimeInterval timeOffset;

@end

// --- CAAction ---------------------------------------------------------------------------------

@protocol CAAction

- (void)runActionForKey:(NSString*)event object:(id)anObject arguments:(nullable NSDictionary*)dict;

@end

// A null in a layer's actions is "no action" ("CALayer", actions).
@interface NSNull (CAActionAdditions) <CAAction>
@end

// --- CAAnimation ------------------------------------------------------------------------------

API_AVAILABLE(macos(10.5))
@interface CAAnimation : NSObject <NSSecureCoding, NSCopying, CAMediaTiming, CAAction>

@property(nullable, strong) CAMediaTimingFunction* timingFunction;
@property(getter=isRemovedOnCompletion) BOOL removedOnCompletion;

@end

API_AVAILABLE(macos(10.5)) @interface CAPropertyAnimation : CAAnimation

+ (instancetype)animationWithKeyPath:(nullable NSString*)path;

@end

API_AVAILABLE(macos(10.5)) @interface CABasicAnimation : CAPropertyAnimation

// Objects: a number for a property that is a number.
@property(nullable, strong) id fromValue;
@property(nullable, strong) id toValue;

@end

// --- CALayer ----------------------------------------------------------------------------------

CA_EXTERN CALayerContentsGravity const kCAGravityResizeAspect API_AVAILABLE(macos(10.5));
CA_EXTERN CALayerContentsGravity const kCAGravityResizeAspectFill API_AVAILABLE(macos(10.5));
CA_EXTERN CALayerContentsFilter const kCAFilterTrilinear API_AVAILABLE(macos(10.6));

API_AVAILABLE(macos(10.5)) @interface CALayer : NSObject<NSSecureCoding, CAMediaTiming>

+ (instancetype)layer;
@property CGRect bounds;
@property CGPoint position;
// From 0 to 1 of the bounds; the position is where it is.
@property CGPoint anchorPoint;
@property CGRect frame;
@property(getter=isHidden) BOOL hidden;
- (void)addSublayer:(CALayer*)layer;
// A CGImageRef, bridged to an object without a change of owner; retained.
@property(nullable, strong) id contents;
@property(copy) CALayerContentsGravity contentsGravity;
// Of the layer that a view owns, the system keeps it at its window's.
@property CGFloat contentsScale API_AVAILABLE(macos(10.7));
@property(copy) CALayerContentsFilter minificationFilter;
@property BOOL masksToBounds;
// Retained by the layer, in the manner of a copy property.
@property(nullable) CGColorRef backgroundColor;
@property CGFloat cornerRadius;
@property CGFloat borderWidth;
@property(nullable) CGColorRef borderColor;
@property(nullable, copy) NSDictionary<NSString*, id<CAAction>>* actions;
// Copies the animation. One of the same key before it is replaced.
- (void)addAnimation:(CAAnimation*)anim forKey:(nullable NSString*)key;
- (void)removeAnimationForKey:(NSString*)key;
- (nullable __kindof CAAnimation*)animationForKey:(NSString*)key;

@end

// --- CAMediaTimingFunction --------------------------------------------------------------------

CA_EXTERN CAMediaTimingFunctionName const kCAMediaTimingFunctionEaseInEaseOut
    API_AVAILABLE(macos(10.5));

API_AVAILABLE(macos(10.5)) @interface CAMediaTimingFunction : NSObject<NSSecureCoding>

+ (instancetype)functionWithName:(CAMediaTimingFunctionName)name;

@end

NS_ASSUME_NONNULL_END
