#include <memory>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "support/MainQueueNotifications.h"
#include "tests/contract/NotificationsContract.h"

namespace talmo::test {
namespace {

/// Real threads and real time.
class LinuxNotificationsWorld : public NotificationsWorld {
 public:
  ~LinuxNotificationsWorld() override { dispatch_.shutdown(); }

  Dispatch& dispatch() override { return dispatch_; }
  Notifications& notifications() override { return notifications_; }

  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return dispatch_.serveMainQueueUntil(condition, dispatch_.uptime() + limit);
  }

 private:
  LinuxDispatch dispatch_;
  MainQueueNotifications notifications_{dispatch_};
};

INSTANTIATE_TEST_SUITE_P(Linux, NotificationsContract,
                         testing::Values([]() -> std::unique_ptr<NotificationsWorld> {
                           return std::make_unique<LinuxNotificationsWorld>();
                         }));

}  // namespace
}  // namespace talmo::test
