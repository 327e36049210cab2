#include "platform/linux/LinuxPlatform.h"

#include <utility>

#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/interface/LinuxInterface.h"

namespace talmo {
namespace {

/// What a system posts when what a program is trusted with may have changed.
constexpr const char* trustChanged = "com.apple.accessibility.api";

}  // namespace

LinuxPlatform::LinuxPlatform(std::filesystem::path bundleFolder)
    : bundle_(bundleFolder),
      childProcesses_(std::move(bundleFolder)),
      application_(dispatch_, bundle_),
      userDefaults_(LinuxUserDefaults::standardFile()),
      distributedNotifications_(dispatch_),
      keyEvents_(LinuxApplications::strokeException),
      accessibility_(eventTap_),
      appleEvents_(bundle_.resourcePath("browser-consent", "html").value_or("")),
      workspace_(dispatch_),
      notifications_(dispatch_),
      workspaceNotifications_(dispatch_),
      mediaRemote_(notifications_),
      interface_(std::make_unique<LinuxInterface>(bundle_, application_, notifications_,
                                                  workspaceNotifications_)) {
  eventTap_.onKeysLost([this] { distributedNotifications_.post(trustChanged); });
}

LinuxPlatform::~LinuxPlatform() {
  dispatch_.shutdown();
  // The components' records may hold queues.
  states().clear();
}

EventMonitors& LinuxPlatform::eventMonitors() {
  return interface_->eventMonitors;
}

Panels& LinuxPlatform::panels() {
  return interface_->panels;
}

Windows& LinuxPlatform::windows() {
  return interface_->windows;
}

StatusBar& LinuxPlatform::statusBar() {
  return interface_->statusBar;
}

}  // namespace talmo
