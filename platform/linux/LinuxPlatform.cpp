#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/applications/LinuxApplications.h"

namespace talmo {

LinuxPlatform::LinuxPlatform()
    : userDefaults_(LinuxUserDefaults::standardFile()),
      keyEvents_(LinuxApplications::strokeException),
      workspace_(dispatch_),
      notifications_(dispatch_),
      mediaRemote_(notifications_) {}

LinuxPlatform::~LinuxPlatform() {
  dispatch_.shutdown();
  // The components' records may hold queues.
  states().clear();
}

}  // namespace talmo
