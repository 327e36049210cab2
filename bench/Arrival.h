#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <utility>

namespace talmo::test {

/// When the last command arrived. Any thread.
class Arrival {
 public:
  void set() {
    const auto now = std::chrono::steady_clock::now();
    const std::lock_guard lock(mutex_);
    at_ = now;
    changed_.notify_one();
  }

  /// Waits for the next command. Throws when none comes.
  std::chrono::steady_clock::time_point take() {
    std::unique_lock lock(mutex_);
    if (!changed_.wait_for(lock, std::chrono::seconds(10), [this] { return at_.has_value(); })) {
      throw std::runtime_error("a command did not arrive");
    }
    return *std::exchange(at_, std::nullopt);
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<std::chrono::steady_clock::time_point> at_;
};

}  // namespace talmo::test
