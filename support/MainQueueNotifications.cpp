#include "support/MainQueueNotifications.h"

#include <map>
#include <utility>
#include <vector>

#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

struct MainQueueNotifications::Table {
  struct Observer {
    std::string name;
    std::shared_ptr<const std::function<void()>> block;
  };

  /// Runs the block of an observer that is still there.
  void notify(Token token) {
    std::shared_ptr<const std::function<void()>> block;
    {
      const MutexLock lock(mutex);
      const auto found = observers.find(token);
      if (found == observers.end()) return;
      block = found->second.block;
    }
    (*block)();
  }

  Mutex mutex;
  Token lastToken TALMO_GUARDED_BY(mutex) = 0;
  std::map<Token, Observer> observers TALMO_GUARDED_BY(mutex);
};

MainQueueNotifications::MainQueueNotifications(Dispatch& dispatch)
    : dispatch_(dispatch), table_(std::make_shared<Table>()) {}

MainQueueNotifications::~MainQueueNotifications() = default;

Notifications::Token MainQueueNotifications::addObserver(const std::string& name,
                                                         std::function<void()> block) {
  auto shared = std::make_shared<const std::function<void()>>(std::move(block));
  const MutexLock lock(table_->mutex);
  const Token token = ++table_->lastToken;
  table_->observers.emplace(token, Table::Observer{name, std::move(shared)});
  return token;
}

void MainQueueNotifications::removeObserver(Token token) {
  // Released after the lock: what the block holds may have a destructor that comes back here.
  std::map<Token, Table::Observer>::node_type removed;
  const MutexLock lock(table_->mutex);
  removed = table_->observers.extract(token);
}

void MainQueueNotifications::post(const std::string& name) {
  std::vector<Token> tokens;
  {
    const MutexLock lock(table_->mutex);
    for (const auto& [token, observer] : table_->observers) {
      if (observer.name == name) tokens.push_back(token);
    }
  }
  for (const Token token : tokens) {
    dispatch_.mainQueue().async([table = table_, token] { table->notify(token); });
  }
}

}  // namespace talmo
