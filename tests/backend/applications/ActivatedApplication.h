#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support/Mutex.h"
#include "support/ThreadSafety.h"

struct sd_bus;

namespace talmo::test {

/// An application on the session bus that counts how often it was activated and keeps the URLs that
/// it was to open (org.freedesktop.Application of freedesktop.org's desktop entries).
class ActivatedApplication {
 public:
  /// `name` is its bus name and the id of its desktop entry, `path` the same as an object path.
  /// Throws without a bus.
  ActivatedApplication(const std::string& name, const std::string& path);
  ~ActivatedApplication();
  ActivatedApplication(const ActivatedApplication&) = delete;
  ActivatedApplication& operator=(const ActivatedApplication&) = delete;

  int activations() const;
  std::vector<std::string> opened() const;

 private:
  struct Callbacks;
  struct CloseBus {
    void operator()(sd_bus* bus) const;
  };

  std::unique_ptr<sd_bus, CloseBus> bus_;
  mutable Mutex mutex_;
  int activations_ TALMO_GUARDED_BY(mutex_) = 0;
  std::vector<std::string> opened_ TALMO_GUARDED_BY(mutex_);
  std::atomic<bool> isStopping_ = false;
  std::thread thread_;
};

}  // namespace talmo::test
