#include <memory>

#import <Foundation/Foundation.h>

#include "platform/macos/notifications/MacNotifications.h"
#include "tests/contract/NotificationsContract.h"
#include "tests/macos/contract/MacDispatchWorld.h"

namespace talmo::test {
namespace {

/// A centre of its own, of the kind that a process has.
class MacNotificationsWorld : public MacDispatchWorld<NotificationsWorld> {
 public:
  Notifications& notifications() override { return notifications_; }

 private:
  MacNotifications notifications_{[[NSNotificationCenter alloc] init]};
};

INSTANTIATE_TEST_SUITE_P(Mac, NotificationsContract, testing::Values([] {
                           return std::make_unique<MacNotificationsWorld>();
                         }), [](const auto&) { return "Process"; });

}  // namespace
}  // namespace talmo::test
