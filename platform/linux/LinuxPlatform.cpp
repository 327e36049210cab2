#include "platform/linux/LinuxPlatform.h"

#include <utility>

#include "platform/linux/applications/LinuxApplications.h"

namespace talmo {
namespace {

/// What a system posts when what a program is trusted with may have changed.
constexpr const char* trustChanged = "com.apple.accessibility.api";

}  // namespace

LinuxPlatform::LinuxPlatform(std::filesystem::path bundleFolder)
    : bundle_(bundleFolder),
      childProcesses_(std::move(bundleFolder)),
      application_(dispatch_),
      userDefaults_(LinuxUserDefaults::standardFile()),
      distributedNotifications_(dispatch_),
      keyEvents_(LinuxApplications::strokeException),
      accessibility_(eventTap_),
      appleEvents_(bundle_.resourcePath("browser-consent", "html").value_or("")),
      workspace_(dispatch_),
      notifications_(dispatch_),
      mediaRemote_(notifications_) {
  eventTap_.onKeysLost([this] { distributedNotifications_.post(trustChanged); });
}

LinuxPlatform::~LinuxPlatform() {
  dispatch_.shutdown();
  // The components' records may hold queues.
  states().clear();
}

}  // namespace talmo
