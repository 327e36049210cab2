#include "platform/macos/notifications/MacNotifications.h"

#include <utility>

#include "platform/macos/Text.h"
#include "support/MutexLock.h"

namespace talmo {

MacNotifications::MacNotifications(NSNotificationCenter* center) : center_(center) {}

MacNotifications::~MacNotifications() {
  std::map<Token, TLMObserver*> observers;
  {
    const MutexLock lock(mutex_);
    observers.swap(observers_);
  }
  for (const auto& [token, observer] : observers) remove(observer);
}

Notifications::Token MacNotifications::addObserver(const std::string& name,
                                                   std::function<void()> block) {
  @autoreleasepool {
    TLMObserver* const observer = [[TLMObserver alloc] initWithBlock:std::move(block)];
    [center_ addObserver:observer selector:@selector(notificationWasPosted:) name:toNSString(name)
                  object:nil];
    const MutexLock lock(mutex_);
    observers_.emplace(++lastToken_, observer);
    return lastToken_;
  }
}

void MacNotifications::removeObserver(Token token) {
  TLMObserver* observer = nil;
  {
    const MutexLock lock(mutex_);
    const auto found = observers_.find(token);
    if (found == observers_.end()) return;
    observer = found->second;
    observers_.erase(found);
  }
  remove(observer);
}

void MacNotifications::post(const std::string& name) {
  @autoreleasepool {
    [center_ postNotificationName:toNSString(name) object:nil];
  }
}

void MacNotifications::remove(TLMObserver* observer) {
  @autoreleasepool {
    [center_ removeObserver:observer];
    [observer takeAwayBlock];
  }
}

}  // namespace talmo
