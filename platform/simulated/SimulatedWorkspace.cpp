#include "platform/simulated/SimulatedWorkspace.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {
namespace {

constexpr std::string_view prefix = "file:///Applications/";
constexpr std::string_view suffix = ".app/";

/// The bundle identifier in a URL of `urlForApplication`; empty for any other.
std::string bundleIDOf(std::string_view url) {
  if (!url.starts_with(prefix) || !url.ends_with(suffix)) return {};
  url.remove_prefix(prefix.size());
  url.remove_suffix(suffix.size());
  return std::string(url);
}

}  // namespace

std::optional<std::string> SimulatedWorkspace::urlForApplication(
    const std::string& bundleID) const {
  if (!applications_.installed(bundleID)) return std::nullopt;
  return std::string(prefix) + bundleID + std::string(suffix);
}

std::vector<RunningApplication> SimulatedWorkspace::runningApplications(
    const std::string& bundleID) const {
  return applications_.running(bundleID);
}

std::optional<RunningApplication> SimulatedWorkspace::runningApplication(
    ProcessIdentifier process) const {
  return applications_.withProcess(process);
}

std::optional<std::string> SimulatedWorkspace::frontmostApplication() const {
  return applications_.frontmost();
}

void SimulatedWorkspace::openApplication(const std::string& url) {
  {
    const MutexLock lock(mutex_);
    openedApplications_.push_back(url);
  }
  const std::string bundleID = bundleIDOf(url);
  if (applications_.installed(bundleID) && applications_.running(bundleID).empty()) {
    applications_.launch(bundleID);
  }
}

void SimulatedWorkspace::openNewInstance(
    const std::string& url,
    std::function<void(const std::optional<std::string>& error)> completion) {
  std::optional<std::string> error;
  {
    const MutexLock lock(mutex_);
    newInstances_.push_back(url);
    error = newInstanceError_;
  }
  const std::string bundleID = bundleIDOf(url);
  if (!error && applications_.installed(bundleID)) applications_.launch(bundleID);
  dispatch_.globalQueue(QualityOfService::unspecified)
      .async([completion = std::move(completion), error = std::move(error)] { completion(error); });
}

void SimulatedWorkspace::openURL(const std::string& url) {
  const MutexLock lock(mutex_);
  openedURLs_.push_back(url);
}

std::optional<Date> SimulatedWorkspace::lastUsedDate(const std::string& url) const {
  Duration duration{};
  {
    const MutexLock lock(mutex_);
    lastUseQueries_.push_back(dispatch_.isMainThread());
    duration = lastUseDuration_;
  }
  if (duration > Duration::zero()) dispatch_.makeSemaphore(0)->wait(duration);
  const std::optional<SimulatedApplications::Installed> installed =
      applications_.installed(bundleIDOf(url));
  return installed ? installed->lastUsed : std::nullopt;
}

std::optional<Image> SimulatedWorkspace::icon(const std::string& url, int pixels) const {
  const std::string bundleID = bundleIDOf(url);
  {
    const MutexLock lock(mutex_);
    iconsAskedFor_.push_back(url);
  }
  const std::optional<SimulatedApplications::Installed> installed =
      applications_.installed(bundleID);
  if (!installed || !installed->hasIcon) return std::nullopt;
  // The identifier is the picture: each application has its own.
  std::vector<std::uint8_t> content(4 * static_cast<std::size_t>(pixels) *
                                    static_cast<std::size_t>(pixels));
  std::ranges::copy_n(bundleID.begin(), std::min(std::ssize(bundleID), std::ssize(content)),
                      content.begin());
  return Image{.width = pixels,
               .height = pixels,
               .pixels = std::make_shared<const std::vector<std::uint8_t>>(std::move(content))};
}

std::vector<LocalPlayer> SimulatedWorkspace::localPlayers() const {
  const MutexLock lock(mutex_);
  return localPlayers_;
}

void SimulatedWorkspace::setLocalPlayers(std::vector<LocalPlayer> players) {
  const MutexLock lock(mutex_);
  localPlayers_ = std::move(players);
}

void SimulatedWorkspace::setLastUseDuration(Duration duration) {
  const MutexLock lock(mutex_);
  lastUseDuration_ = duration;
}

std::vector<bool> SimulatedWorkspace::lastUseQueries() const {
  const MutexLock lock(mutex_);
  return lastUseQueries_;
}

std::vector<std::string> SimulatedWorkspace::openedApplications() const {
  const MutexLock lock(mutex_);
  return openedApplications_;
}

std::vector<std::string> SimulatedWorkspace::iconsAskedFor() const {
  const MutexLock lock(mutex_);
  return iconsAskedFor_;
}

std::vector<std::string> SimulatedWorkspace::newInstances() const {
  const MutexLock lock(mutex_);
  return newInstances_;
}

void SimulatedWorkspace::setNewInstanceError(std::optional<std::string> error) {
  const MutexLock lock(mutex_);
  newInstanceError_ = std::move(error);
}

std::vector<std::string> SimulatedWorkspace::openedURLs() const {
  const MutexLock lock(mutex_);
  return openedURLs_;
}

}  // namespace talmo
