#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"
#include "tests/contract/NetworkWorld.h"

namespace talmo::test {

/// How the requests of a test ended. Any thread.
class NetworkRecord {
 public:
  void add(NetworkResult result) {
    const MutexLock lock(mutex_);
    results_.push_back(std::move(result));
  }
  std::vector<NetworkResult> results() const {
    const MutexLock lock(mutex_);
    return results_;
  }
  std::size_t count() const {
    const MutexLock lock(mutex_);
    return results_.size();
  }

 private:
  mutable Mutex mutex_;
  std::vector<NetworkResult> results_ TALMO_GUARDED_BY(mutex_);
};

/// What every `Network` does. Instantiated once per backend, with what makes a fresh world.
class NetworkContract
    : public testing::TestWithParam<std::function<std::unique_ptr<NetworkWorld>()>> {
 protected:
  using Page = NetworkWorld::Page;

  NetworkWorld& world() { return *world_; }

  /// Far longer than anything here takes; it only bounds a failure.
  static constexpr Duration patience = std::chrono::seconds(60);

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, patience);
  }

  /// Starts a request; how it ends goes into the record.
  std::shared_ptr<NetworkRecord> start(const std::string& url);

  /// How a request for `url` ends. It must end.
  NetworkResult fetch(const std::string& url);

 private:
  const std::unique_ptr<NetworkWorld> world_ = GetParam()();
};

}  // namespace talmo::test
