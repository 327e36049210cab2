#include "app/UpdaterController.h"

#include "platform/Platform.h"

namespace talmo {
namespace {

constexpr const char* feedKey = "SUFeedURL";

}  // namespace

struct UpdaterController::State {
  UpdaterController controller;
};

UpdaterController& UpdaterController::shared() {
  return platform().states().of<State>().controller;
}

UpdaterController::UpdaterController() {
  if (!platform().bundle().objectForInfoDictionaryKey(feedKey)) return;
  controller_ = platform().softwareUpdate().makeStandardUpdaterController(true, *this);
}

bool UpdaterController::isAvailable() const {
  return controller_ != nullptr;
}

bool UpdaterController::automaticallyChecksForUpdates() const {
  return controller_ && controller_->automaticallyChecksForUpdates();
}

void UpdaterController::setAutomaticallyChecksForUpdates(bool automatically) {
  if (controller_) controller_->setAutomaticallyChecksForUpdates(automatically);
}

void UpdaterController::checkForUpdates() {
  if (controller_) controller_->checkForUpdates();
}

bool UpdaterController::supportsGentleScheduledUpdateReminders() const {
  return true;
}

void UpdaterController::standardUserDriverWillHandleShowingUpdate() {
  platform().application().activate();
}

}  // namespace talmo
