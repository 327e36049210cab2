#include "platform/linux/applications/LinuxAppleEvents.h"

#include <chrono>
#include <vector>

#include "platform/linux/applications/DesktopEntry.h"
#include "platform/linux/applications/DesktopLauncher.h"
#include "platform/linux/applications/GlibHandles.h"
#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/LinuxScriptingObject.h"
#include "platform/linux/applications/MprisNames.h"
#include "platform/linux/browsers/BrowserInstance.h"
#include "platform/linux/browsers/DebuggingSocket.h"
#include "support/Logger.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

// MacErrors.h
constexpr std::int32_t noErr = 0;
constexpr std::int32_t procNotFound = -600;
constexpr std::int32_t errAEEventNotPermitted = -1743;

constexpr Duration patienceWithBrowsers = 500ms;

constexpr Logger log("browsers");

/// The table's row, if its application is a media player.
const LinuxApplication* player(const std::string& bundleID) {
  const LinuxApplication* application = LinuxApplications::withBundleID(bundleID);
  return application != nullptr && !application->playerNames.empty() ? application : nullptr;
}

/// Has the running browser show a file.
void show(const std::string& file, const LinuxApplication& browser) {
  const std::optional<DesktopEntry> entry = DesktopEntry::firstOf(browser.desktopIDs);
  const GlibText url(g_filename_to_uri(file.c_str(), nullptr, nullptr));
  if (!entry || !url) return;
  if (const auto error = launchDesktopEntry(*entry, {url.get()})) {
    log.notice("opening %{public}s failed: %{public}s", file, *error);
  }
}

}  // namespace

std::optional<std::int32_t> LinuxAppleEvents::determinePermission(const std::string& bundleID,
                                                                  bool askUserIfNeeded) {
  if (bundleID.empty()) return std::nullopt;
  const LinuxApplication* application = LinuxApplications::withBundleID(bundleID);
  if (application == nullptr) return procNotFound;
  if (!application->profileFolders.empty()) return determineConsent(*application, askUserIfNeeded);
  if (application->playerNames.empty()) return procNotFound;
  const std::optional<std::vector<std::string>> names =
      mprisNames(*application, std::chrono::steady_clock::now() + 1s);
  return names && !names->empty() ? noErr : procNotFound;
}

std::int32_t LinuxAppleEvents::determineConsent(const LinuxApplication& browser,
                                                bool askUserIfNeeded) const {
  const Uptime deadline = std::chrono::steady_clock::now() + patienceWithBrowsers;
  const std::vector<BrowserInstance> instances = browserInstances(browser.bundleID);
  if (instances.empty()) return procNotFound;
  for (const BrowserInstance& instance : instances) {
    if (instance.socket && DebuggingSocket::connect(*instance.socket, deadline)) return noErr;
  }
  if (askUserIfNeeded && !consentPage_.empty()) show(consentPage_, browser);
  return errAEEventNotPermitted;
}

std::unique_ptr<ScriptingObject> LinuxAppleEvents::application(const std::string& bundleID) {
  const LinuxApplication* application = player(bundleID);
  if (application == nullptr) return nullptr;
  return std::make_unique<LinuxScriptingObject>(*application, lastInstances_);
}

}  // namespace talmo
