#pragma once

#import <Foundation/Foundation.h>
#include <functional>
#include <map>
#include <string>

#include "platform/macos/notifications/TLMObserver.h"
#include "platform/Notifications.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// A notification centre of the system: the process's own, the workspace's or the distributed one,
/// whose notices the system delivers to the main thread. Observers are registered by selector, for
/// notices about any object. Any thread.
class MacNotifications : public Notifications {
 public:
  explicit MacNotifications(NSNotificationCenter* center);
  ~MacNotifications() override;

  Token addObserver(const std::string& name, std::function<void()> block) override;
  void removeObserver(Token token) override;
  void post(const std::string& name) override;

 private:
  void remove(TLMObserver* observer);

  NSNotificationCenter* const center_;
  Mutex mutex_;
  Token lastToken_ TALMO_GUARDED_BY(mutex_) = 0;
  std::map<Token, TLMObserver*> observers_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
