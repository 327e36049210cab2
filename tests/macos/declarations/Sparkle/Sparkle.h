// Sparkle 2, documented in its API reference. Main thread.
#pragma once

#include <Foundation/Foundation.h>

@class SPUUserUpdateState;
@class SUAppcastItem;
@protocol SPUUpdaterDelegate;

NS_ASSUME_NONNULL_BEGIN

@protocol SPUStandardUserDriverDelegate <NSObject>
@optional
@property(nonatomic, readonly) BOOL supportsGentleScheduledUpdateReminders;
// `handleShowingUpdate`: whether Sparkle shows the update itself.
- (void)standardUserDriverWillHandleShowingUpdate:(BOOL)handleShowingUpdate
                                        forUpdate:(SUAppcastItem*)update
                                            state:(SPUUserUpdateState*)state;
@end

@interface SPUUpdater : NSObject

- (instancetype)init NS_UNAVAILABLE;
// Kept in the host's defaults.
@property(nonatomic) BOOL automaticallyChecksForUpdates;

@end

@interface SPUStandardUpdaterController : NSObject

// Keeps neither delegate alive. An updater that cannot start tells the person so.
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(nullable id<SPUUpdaterDelegate>)updaterDelegate
                     userDriverDelegate:(nullable id<SPUStandardUserDriverDelegate>)delegate;
@property(nonatomic, readonly) SPUUpdater* updater;
- (void)checkForUpdates:(nullable id)sender;

@end

NS_ASSUME_NONNULL_END
