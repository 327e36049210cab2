#import <Foundation/Foundation.h>
#import <Sparkle/Sparkle.h>

#include "platform/macos/updates/MacSoftwareUpdate.h"

/// Passes on what Sparkle's windows ask and tell.
@interface TLMUserDriverDelegate : NSObject <SPUStandardUserDriverDelegate>

/// The delegate outlives this object.
- (instancetype)initWithDelegate:(talmo::StandardUserDriverDelegate*)delegate
    NS_DESIGNATED_INITIALIZER;
- (instancetype)init NS_UNAVAILABLE;

@end

@implementation TLMUserDriverDelegate {
  talmo::StandardUserDriverDelegate* _delegate;
}

- (instancetype)initWithDelegate:(talmo::StandardUserDriverDelegate*)delegate {
  self = [super init];
  if (self != nil) _delegate = delegate;
  return self;
}

- (BOOL)supportsGentleScheduledUpdateReminders {
  return _delegate->supportsGentleScheduledUpdateReminders();
}

- (void)standardUserDriverWillHandleShowingUpdate:(BOOL)handleShowingUpdate
                                        forUpdate:(SUAppcastItem*)update
                                            state:(SPUUserUpdateState*)state {
  _delegate->standardUserDriverWillHandleShowingUpdate();
}

@end

namespace talmo {
namespace {

class SparkleController : public StandardUpdaterController {
 public:
  SparkleController(bool startingUpdater, StandardUserDriverDelegate& userDriverDelegate)
      : delegate_([[TLMUserDriverDelegate alloc] initWithDelegate:&userDriverDelegate]),
        controller_([[SPUStandardUpdaterController alloc] initWithStartingUpdater:startingUpdater
                                                                  updaterDelegate:nil
                                                               userDriverDelegate:delegate_]) {}

  bool automaticallyChecksForUpdates() const override {
    return controller_.updater.automaticallyChecksForUpdates;
  }
  void setAutomaticallyChecksForUpdates(bool automatically) override {
    controller_.updater.automaticallyChecksForUpdates = automatically;
  }
  void checkForUpdates() override { [controller_ checkForUpdates:nil]; }

 private:
  // The controller does not keep it.
  TLMUserDriverDelegate* const delegate_;
  SPUStandardUpdaterController* const controller_;
};

}  // namespace

std::unique_ptr<StandardUpdaterController> MacSoftwareUpdate::makeStandardUpdaterController(
    bool startingUpdater, StandardUserDriverDelegate& userDriverDelegate) {
  return std::make_unique<SparkleController>(startingUpdater, userDriverDelegate);
}

}  // namespace talmo
