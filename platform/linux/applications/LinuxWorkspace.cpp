#include "platform/linux/applications/LinuxWorkspace.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>

#include "platform/linux/applications/DesktopEntry.h"
#include "platform/linux/applications/DesktopLauncher.h"
#include "platform/linux/applications/GlibHandles.h"
#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/LinuxWindows.h"
#include "platform/linux/applications/MprisNames.h"
#include "platform/linux/applications/ProcessTable.h"
#include "platform/linux/applications/RecentlyUsed.h"
#include "platform/linux/applications/SettingsApplication.h"
#include "platform/linux/applications/ShellUsage.h"
#include "platform/linux/images/ThemedIcon.h"
#include "support/Logger.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

constexpr Logger log("workspace");

std::vector<ProcessIdentifier> onTheBus(const LinuxApplication& application, Uptime deadline) {
  if (application.playerNames.empty()) return {};
  const std::optional<std::vector<std::string>> names = mprisNames(application, deadline);
  if (!names || names->empty()) return {};
  return mprisProcesses(*names, deadline);
}

bool belongsTo(const LinuxWindow& window, const LinuxApplication& application) {
  return std::ranges::any_of(window.classes, [&](const std::string& windowClass) {
    return LinuxApplications::withWindowClass(windowClass) == &application;
  });
}

std::vector<ProcessIdentifier> withWindows(const LinuxApplication& application) {
  std::vector<ProcessIdentifier> processes;
  for (const LinuxWindow& window : LinuxWindows::all()) {
    // A sandbox numbers its processes anew, so the number may be somebody else's, or nobody's.
    if (belongsTo(window, application) && ProcessTable::isOurs(window.process) &&
        std::ranges::find(processes, window.process) == processes.end()) {
      processes.push_back(window.process);
    }
  }
  return processes;
}

std::vector<ProcessIdentifier> processesOf(const LinuxApplication& application) {
  std::vector<ProcessIdentifier> processes =
      onTheBus(application, std::chrono::steady_clock::now() + 1s);
  if (processes.empty()) processes = withWindows(application);
  if (processes.empty()) return LinuxApplications::processes(application);
  ProcessTable::sortByAge(processes);
  return processes;
}

std::string nameOf(const LinuxApplication& application) {
  const std::optional<DesktopEntry> entry = DesktopEntry::firstOf(application.desktopIDs);
  return entry ? entry->name() : std::string(application.displayName);
}

/// By the program that the process runs, or by its name as a player on the bus.
const LinuxApplication* applicationOf(ProcessIdentifier process) {
  const std::string executable = ProcessTable::executable(process);
  if (executable.empty()) return nullptr;
  if (const auto* application = LinuxApplications::withExecutable(executable)) return application;
  const Uptime deadline = std::chrono::steady_clock::now() + 1s;
  const auto& all = LinuxApplications::all();
  const auto found = std::ranges::find_if(all, [&](const LinuxApplication& application) {
    const std::vector<ProcessIdentifier> owners = onTheBus(application, deadline);
    return std::ranges::find(owners, process) != owners.end();
  });
  return found == all.end() ? nullptr : &*found;
}

const LinuxApplication* applicationOf(const LinuxWindow& window) {
  for (const std::string& windowClass : window.classes) {
    if (const auto* application = LinuxApplications::withWindowClass(windowClass)) {
      return application;
    }
  }
  return LinuxApplications::withExecutable(ProcessTable::executable(window.process));
}

/// The entry of an application that is not in the table. By custom its id, or else what it says
/// itself, is the class of its windows.
std::optional<DesktopEntry> entryOf(const LinuxWindow& window) {
  for (const std::string& windowClass : window.classes) {
    if (std::optional<DesktopEntry> entry = DesktopEntry::withID(windowClass)) return entry;
  }
  for (const std::string& windowClass : window.classes) {
    if (std::optional<DesktopEntry> entry = DesktopEntry::withWindowClass(windowClass)) {
      return entry;
    }
  }
  return std::nullopt;
}

std::optional<std::string> startAnother(const std::string& url) {
  if (const std::optional<DesktopEntry> entry = DesktopEntry::atURL(url)) {
    return launchDesktopEntry(*entry, {});
  }
  const GlibText path(g_filename_from_uri(url.c_str(), nullptr, nullptr));
  if (!path) return "it is no file URL";
  return launchSuccessor(path.get());
}

}  // namespace

std::optional<std::string> LinuxWorkspace::urlForApplication(const std::string& bundleID) const {
  const LinuxApplication* application = LinuxApplications::withBundleID(bundleID);
  if (application == nullptr) return std::nullopt;
  const std::optional<DesktopEntry> entry = DesktopEntry::firstOf(application->desktopIDs);
  if (!entry) return std::nullopt;
  return entry->url();
}

std::vector<RunningApplication> LinuxWorkspace::runningApplications(
    const std::string& bundleID) const {
  const LinuxApplication* application = LinuxApplications::withBundleID(bundleID);
  if (application == nullptr) return {};
  const std::vector<ProcessIdentifier> processes = processesOf(*application);
  if (processes.empty()) return {};
  const std::string name = nameOf(*application);
  std::vector<RunningApplication> running;
  running.reserve(processes.size());
  for (const ProcessIdentifier process : processes) {
    running.push_back({.bundleID = bundleID, .localizedName = name, .processIdentifier = process});
  }
  return running;
}

std::optional<RunningApplication> LinuxWorkspace::runningApplication(
    ProcessIdentifier process) const {
  const LinuxApplication* application = applicationOf(process);
  if (application == nullptr) return std::nullopt;
  return RunningApplication{.bundleID = std::string(application->bundleID),
                            .localizedName = nameOf(*application),
                            .processIdentifier = process};
}

std::optional<std::string> LinuxWorkspace::frontmostApplication() const {
  const std::optional<LinuxWindow> window = LinuxWindows::active();
  if (!window) return std::nullopt;
  if (const LinuxApplication* application = applicationOf(*window)) {
    return std::string(application->bundleID);
  }
  const std::optional<DesktopEntry> entry = entryOf(*window);
  if (!entry) return std::nullopt;
  return entry->id();
}

void LinuxWorkspace::openApplication(const std::string& url) {
  const Date now = dispatch_.now();
  dispatch_.globalQueue(QualityOfService::userInitiated).async([url, now, opened = opened_] {
    const std::optional<DesktopEntry> entry = DesktopEntry::atURL(url);
    if (!entry) {
      log.notice("no application at %{public}s", url);
    } else if (const std::optional<std::string> error = launchDesktopEntry(*entry, {})) {
      log.notice("opening %{public}s failed: %{public}s", url, *error);
    } else {
      opened->remember(entry->id(), now);
    }
  });
}

void LinuxWorkspace::openNewInstance(
    const std::string& url,
    std::function<void(const std::optional<std::string>& error)> completion) {
  dispatch_.globalQueue(QualityOfService::userInitiated)
      .async([url, completion = std::move(completion)] {
        const std::optional<std::string> error = startAnother(url);
        if (error) {
          log.notice("opening a new instance of %{public}s failed: %{public}s", url, *error);
        }
        completion(error);
      });
}

void LinuxWorkspace::openURL(const std::string& url) {
  dispatch_.globalQueue(QualityOfService::userInitiated).async([url] {
    std::optional<DesktopEntry> entry = settingsApplicationFor(url);
    // The desktop's settings know nothing of the Mac's panes.
    std::vector<std::string> urls;
    if (!entry) {
      entry = DesktopEntry::defaultForURL(url);
      urls = {url};
    }
    if (!entry) {
      log.info("no application opens %{public}s", url);
    } else if (const std::optional<std::string> error = launchDesktopEntry(*entry, urls)) {
      log.notice("opening %{public}s failed: %{public}s", url, *error);
    }
  });
}

std::optional<Date> LinuxWorkspace::lastUsedDate(const std::string& url) const {
  const std::optional<DesktopEntry> entry = DesktopEntry::atURL(url);
  if (!entry) return std::nullopt;
  // An absent date is less than every other.
  return std::max(
      {lastUseOfAFile(*entry), lastTimeInFront(*entry), opened_->lastOpened(entry->id())});
}

std::optional<Image> LinuxWorkspace::icon(const std::string& url, int pixels) const {
  const std::optional<DesktopEntry> entry = DesktopEntry::atURL(url);
  if (!entry) return std::nullopt;
  return themedIcon(entry->iconName(), pixels);
}

std::vector<LocalPlayer> LinuxWorkspace::localPlayers() const {
  return LinuxApplications::localPlayers();
}

}  // namespace talmo
