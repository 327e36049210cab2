// Service Management: login items.
#pragma once

#include <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

// Documented in "SMAppService.Status". 2 is RequiresApproval: registered, and switched off by the
// person in the system's settings. NotFound also stands for what never was registered.
typedef NS_ENUM(NSInteger, SMAppServiceStatus) {
  SMAppServiceStatusNotRegistered = 0,
  SMAppServiceStatusEnabled = 1,
  SMAppServiceStatusNotFound = 3,
} API_AVAILABLE(macos(13.0));

API_AVAILABLE(macos(13.0)) @interface SMAppService : NSObject

// `mainApp` in Swift.
@property(class, readonly) SMAppService* mainAppService;
@property(readonly) SMAppServiceStatus status;
// Fails too where it is registered already.
- (BOOL)registerAndReturnError:(NSError* _Nullable* _Nullable)error;
// Fails too where it is not registered.
- (BOOL)unregisterAndReturnError:(NSError* _Nullable* _Nullable)error;

@end

NS_ASSUME_NONNULL_END
