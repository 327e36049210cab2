#include "platform/macos/updates/MacSoftwareUpdate.h"

namespace talmo {

std::unique_ptr<StandardUpdaterController> MacSoftwareUpdate::makeStandardUpdaterController(
    bool, StandardUserDriverDelegate&) {
  return nullptr;
}

}  // namespace talmo
