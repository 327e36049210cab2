#include "platform/linux/applications/LinuxAppleEvents.h"

#include <chrono>
#include <vector>

#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/LinuxScriptingObject.h"
#include "platform/linux/applications/MprisNames.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

// MacErrors.h
constexpr std::int32_t noErr = 0;
constexpr std::int32_t procNotFound = -600;

/// The table's row, if its application is a media player.
const LinuxApplication* player(const std::string& bundleID) {
  const LinuxApplication* application = LinuxApplications::withBundleID(bundleID);
  return application != nullptr && !application->playerNames.empty() ? application : nullptr;
}

}  // namespace

std::optional<std::int32_t> LinuxAppleEvents::determinePermission(const std::string& bundleID,
                                                                  bool) {
  if (bundleID.empty()) return std::nullopt;
  const LinuxApplication* application = player(bundleID);
  if (application == nullptr) return procNotFound;
  const std::optional<std::vector<std::string>> names =
      mprisNames(*application, std::chrono::steady_clock::now() + 1s);
  if (!names) return connectionInvalid;
  return names->empty() ? procNotFound : noErr;
}

std::unique_ptr<ScriptingObject> LinuxAppleEvents::application(const std::string& bundleID) {
  const LinuxApplication* application = player(bundleID);
  if (application == nullptr) return nullptr;
  return std::make_unique<LinuxScriptingObject>(*application, lastInstances_);
}

}  // namespace talmo
