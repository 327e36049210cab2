#include "platform/linux/LinuxPlatform.h"

#include <utility>

#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/interface/LinuxInterface.h"

namespace talmo {

LinuxPlatform::LinuxPlatform(std::filesystem::path bundleFolder)
    : bundle_(bundleFolder),
      childProcesses_(std::move(bundleFolder)),
      userDefaults_(LinuxUserDefaults::standardFile()),
      keyEvents_(LinuxApplications::strokeException),
      appleEvents_(bundle_.resourcePath("browser-consent", "html").value_or("")),
      workspace_(dispatch_),
      notifications_(dispatch_),
      workspaceNotifications_(dispatch_),
      mediaRemote_(notifications_),
      interface_(std::make_unique<LinuxInterface>(dispatch_, bundle_, notifications_,
                                                  workspaceNotifications_)) {}

LinuxPlatform::~LinuxPlatform() {
  dispatch_.shutdown();
  // The components' records may hold queues.
  states().clear();
}

Application& LinuxPlatform::application() {
  return interface_->program;
}

EventMonitors& LinuxPlatform::eventMonitors() {
  return interface_->eventMonitors;
}

Panels& LinuxPlatform::panels() {
  return interface_->panels;
}

StatusBar& LinuxPlatform::statusBar() {
  return interface_->statusBar;
}

LinuxProgram& LinuxPlatform::program() {
  return interface_->program;
}

}  // namespace talmo
