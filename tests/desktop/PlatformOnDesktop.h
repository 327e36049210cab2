#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/linux/interface/Toolkit.h"
#include "platform/linux/LinuxPlatform.h"
#include "tests/support/PrivateDesktop.h"

namespace talmo::test {

/// The Linux backend in the test's own process, which works on a private desktop for as long as
/// this lives. Main thread.
class PlatformOnDesktop {
 public:
  /// It shows its interface when `hasInterface`.
  PlatformOnDesktop(const PrivateDesktop& desktop, const std::filesystem::path& bundleFolder,
                    bool hasInterface = false);
  ~PlatformOnDesktop();
  PlatformOnDesktop(const PlatformOnDesktop&) = delete;
  PlatformOnDesktop& operator=(const PlatformOnDesktop&) = delete;

  LinuxPlatform& services() { return *platform_; }

  /// Serves the main queue until `condition` holds; false when it takes too long.
  bool runUntil(const std::function<bool()>& condition);

  /// Runs `work` on a queue and waits for it, as those ask who wait. False when it takes too long.
  bool runOnQueue(const std::function<void()>& work);

 private:
  /// What the desktop's variables were before.
  std::map<std::string, std::optional<std::string>> environment_;
  std::unique_ptr<Toolkit> toolkit_;
  std::unique_ptr<LinuxPlatform> platform_;
};

}  // namespace talmo::test
