#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "platform/linux/applications/BusConnection.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo::test {

/// The bar of a desktop that shows other programs' icons itself (StatusNotifierItem), on a thread
/// of its own. Any thread may call.
class FakeNotifierHost {
 public:
  /// Takes the watcher's name on the bus of that address. Throws when that is impossible.
  explicit FakeNotifierHost(const std::string& busAddress);
  ~FakeNotifierHost();
  FakeNotifierHost(const FakeNotifierHost&) = delete;
  FakeNotifierHost& operator=(const FakeNotifierHost&) = delete;

  /// The bus name of the icon that was registered last.
  std::optional<std::string> item() const;

  /// The person has clicked on the icon: "Activate" or "ContextMenu". Does not wait for an answer.
  void click(const std::string& method) const;

 private:
  struct Callbacks;

  BusConnection connect() const;
  void serve();

  const std::string address_;
  BusConnection bus_;
  std::atomic<bool> isStopped_ = false;
  mutable Mutex mutex_;
  std::optional<std::string> item_ TALMO_GUARDED_BY(mutex_);
  std::thread thread_;
};

}  // namespace talmo::test
