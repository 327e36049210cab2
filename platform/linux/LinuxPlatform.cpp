#include "platform/linux/LinuxPlatform.h"

#include <utility>

#include "platform/linux/applications/LinuxApplications.h"

namespace talmo {

LinuxPlatform::LinuxPlatform(std::filesystem::path bundleFolder)
    : bundle_(bundleFolder),
      childProcesses_(std::move(bundleFolder)),
      userDefaults_(LinuxUserDefaults::standardFile()),
      keyEvents_(LinuxApplications::strokeException),
      appleEvents_(bundle_.resourcePath("browser-consent", "html").value_or("")),
      workspace_(dispatch_),
      notifications_(dispatch_),
      mediaRemote_(notifications_) {}

LinuxPlatform::~LinuxPlatform() {
  dispatch_.shutdown();
  // The components' records may hold queues.
  states().clear();
}

}  // namespace talmo
