#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Dispatch.h"
#include "platform/Notifications.h"

namespace talmo {

/// The notification centre of a backend whose system has none: a table of the observers, whose
/// blocks are items of the main queue.
class MainQueueNotifications : public Notifications {
 public:
  /// `dispatch` lives for longer.
  explicit MainQueueNotifications(Dispatch& dispatch);
  ~MainQueueNotifications() override;

  Token addObserver(const std::string& name, std::function<void()> block) override;
  void removeObserver(Token token) override;
  void post(const std::string& name) override;

 private:
  struct Table;

  Dispatch& dispatch_;
  /// Shared with the notices that are on their way.
  const std::shared_ptr<Table> table_;
};

}  // namespace talmo
