#include "platform/simulated/SimulatedApplications.h"

#include <algorithm>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {

void SimulatedApplications::install(const Installed& application) {
  const MutexLock lock(mutex_);
  installed_[application.bundleID] = application;
}

void SimulatedApplications::uninstall(const std::string& bundleID) {
  const MutexLock lock(mutex_);
  installed_.erase(bundleID);
}

std::optional<SimulatedApplications::Installed> SimulatedApplications::installed(
    const std::string& bundleID) const {
  const MutexLock lock(mutex_);
  const auto found = installed_.find(bundleID);
  if (found == installed_.end()) return std::nullopt;
  return found->second;
}

ProcessIdentifier SimulatedApplications::launch(const std::string& bundleID) {
  const MutexLock lock(mutex_);
  const auto found = installed_.find(bundleID);
  const ProcessIdentifier process = nextProcess_++;
  running_.push_back({.bundleID = bundleID,
                      .localizedName = found == installed_.end() ? bundleID : found->second.name,
                      .processIdentifier = process});
  return process;
}

void SimulatedApplications::quit(ProcessIdentifier process) {
  const MutexLock lock(mutex_);
  std::erase_if(running_, [process](const RunningApplication& application) {
    return application.processIdentifier == process;
  });
  windowTitles_.erase(process);
}

std::vector<RunningApplication> SimulatedApplications::running(const std::string& bundleID) const {
  const MutexLock lock(mutex_);
  std::vector<RunningApplication> found;
  std::ranges::copy_if(running_, std::back_inserter(found),
                       [&bundleID](const RunningApplication& application) {
                         return application.bundleID == bundleID;
                       });
  return found;
}

std::optional<RunningApplication> SimulatedApplications::withProcess(
    ProcessIdentifier process) const {
  const MutexLock lock(mutex_);
  const auto found = std::ranges::find(running_, process, &RunningApplication::processIdentifier);
  return found == running_.end() ? std::nullopt : std::optional(*found);
}

void SimulatedApplications::setManner(const std::string& bundleID, Manner manner) {
  const MutexLock lock(mutex_);
  manners_[bundleID] = manner;
}

SimulatedApplications::Manner SimulatedApplications::manner(const std::string& bundleID) const {
  const MutexLock lock(mutex_);
  const auto found = manners_.find(bundleID);
  return found == manners_.end() ? Manner::answers : found->second;
}

void SimulatedApplications::setTrack(const std::string& bundleID,
                                     const std::optional<Track>& track) {
  const MutexLock lock(mutex_);
  tracks_.erase(bundleID);
  if (track) tracks_[bundleID] = *track;
}

std::optional<SimulatedApplications::Track> SimulatedApplications::track(
    const std::string& bundleID) const {
  const MutexLock lock(mutex_);
  const auto found = tracks_.find(bundleID);
  if (found == tracks_.end()) return std::nullopt;
  return found->second;
}

void SimulatedApplications::setPlayerState(const std::string& bundleID, std::uint32_t state) {
  const MutexLock lock(mutex_);
  playerStates_[bundleID] = state;
}

std::uint32_t SimulatedApplications::playerState(const std::string& bundleID) const {
  constexpr std::uint32_t stopped = 0x6B505353;  // 'kPSS'
  const MutexLock lock(mutex_);
  const auto found = playerStates_.find(bundleID);
  return found == playerStates_.end() ? stopped : found->second;
}

void SimulatedApplications::setWindowTitles(ProcessIdentifier process,
                                            const std::vector<std::string>& titles) {
  const MutexLock lock(mutex_);
  windowTitles_[process] = titles;
}

std::vector<std::string> SimulatedApplications::windowTitles(ProcessIdentifier process) const {
  const MutexLock lock(mutex_);
  const auto found = windowTitles_.find(process);
  return found == windowTitles_.end() ? std::vector<std::string>{} : found->second;
}

void SimulatedApplications::setFrontmost(const std::optional<std::string>& bundleID) {
  const MutexLock lock(mutex_);
  frontmost_ = bundleID;
}

std::optional<std::string> SimulatedApplications::frontmost() const {
  const MutexLock lock(mutex_);
  return frontmost_;
}

std::vector<std::string> SimulatedApplications::commands(const std::string& bundleID) const {
  const MutexLock lock(mutex_);
  const auto found = commands_.find(bundleID);
  return found == commands_.end() ? std::vector<std::string>{} : found->second;
}

void SimulatedApplications::recordCommand(const std::string& bundleID, std::string selector) {
  const MutexLock lock(mutex_);
  commands_[bundleID].push_back(std::move(selector));
}

std::vector<KeyboardEvent> SimulatedApplications::keyboardEvents(ProcessIdentifier process) const {
  const MutexLock lock(mutex_);
  const auto found = keyboardEvents_.find(process);
  return found == keyboardEvents_.end() ? std::vector<KeyboardEvent>{} : found->second;
}

void SimulatedApplications::recordKeyboardEvent(ProcessIdentifier process,
                                                const KeyboardEvent& event) {
  const MutexLock lock(mutex_);
  const bool isThere = std::ranges::any_of(running_, [process](const RunningApplication& running) {
    return running.processIdentifier == process;
  });
  if (isThere) keyboardEvents_[process].push_back(event);
}

}  // namespace talmo
