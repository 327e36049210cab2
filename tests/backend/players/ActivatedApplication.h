#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>

struct sd_bus;

namespace talmo::test {

/// An application on the session bus that counts how often it was activated
/// (org.freedesktop.Application of freedesktop.org's desktop entries).
class ActivatedApplication {
 public:
  /// `name` is its bus name and the id of its desktop entry, `path` the same as an object path.
  /// Throws without a bus.
  ActivatedApplication(const std::string& name, const std::string& path);
  ~ActivatedApplication();
  ActivatedApplication(const ActivatedApplication&) = delete;
  ActivatedApplication& operator=(const ActivatedApplication&) = delete;

  int activations() const { return activations_; }

 private:
  struct CloseBus {
    void operator()(sd_bus* bus) const;
  };

  std::unique_ptr<sd_bus, CloseBus> bus_;
  std::atomic<int> activations_ = 0;
  std::atomic<bool> isStopping_ = false;
  std::thread thread_;
};

}  // namespace talmo::test
