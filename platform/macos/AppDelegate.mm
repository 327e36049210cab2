#include "platform/macos/AppDelegate.h"

#include <memory>

#include "app/AppCoordinator.h"

@implementation AppDelegate {
  std::shared_ptr<talmo::AppCoordinator> _coordinator;
}

- (instancetype)init {
  self = [super init];
  if (self != nil) _coordinator = talmo::AppCoordinator::make();
  return self;
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
  _coordinator->start();
}

@end
