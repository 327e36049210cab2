#include "platform/linux/browsers/BrowserInstance.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/ProcessTable.h"

namespace talmo {
namespace {

// Chromium's content/public/common/content_switches.h and chrome/common/chrome_switches.h.
constexpr std::string_view portSwitch = "--remote-debugging-port";
constexpr std::string_view profileSwitch = "--user-data-dir";

/// What a switch may be set to, likeliest first; empty when it is not there. Of several switches
/// the last one counts.
std::vector<std::string> valuesOf(const std::vector<std::string>& arguments,
                                  std::string_view name) {
  const std::string beginning = std::string(name) + "=";
  std::vector<std::string> values;
  for (const std::string& argument : arguments) {
    if (argument == "--") break;
    if (argument.starts_with(beginning)) values = {argument.substr(beginning.size())};
  }
  if (arguments.size() != 1) return values;
  // Chromium may have written its command line anew, with spaces between the arguments: a value
  // ends at one of them, at the latest before the next switch.
  const std::string& line = arguments.front();
  std::size_t place = line.rfind(" " + beginning);
  if (place == std::string::npos) return {};
  place += 1 + beginning.size();
  const std::string value = line.substr(place, line.find(" --", place) - place);
  for (std::size_t end = value.find(' '); end != std::string::npos;
       end = value.find(' ', end + 1)) {
    values.push_back(value.substr(0, end));
  }
  values.push_back(value);
  return values;
}

/// The variable as the browser found it, or, where it has written over it, as this process did;
/// empty when it is not there.
std::filesystem::path folderIn(ProcessIdentifier process, const char* variable) {
  if (const auto value = ProcessTable::environment(process, variable)) return *value;
  const bool canBeSeen = ProcessTable::environment(process, "HOME").has_value();
  const char* ours = canBeSeen ? nullptr : std::getenv(variable);
  return ours == nullptr ? "" : ours;
}

/// Where the process keeps its configuration, as Chromium finds it out (its docs/user_data_dir.md).
std::filesystem::path configFolderOf(ProcessIdentifier process) {
  for (const char* variable : {"CHROME_CONFIG_HOME", "XDG_CONFIG_HOME"}) {
    const std::filesystem::path folder = folderIn(process, variable);
    if (!folder.empty()) return folder;
  }
  return folderIn(process, "HOME") / ".config";
}

/// The folder of this process's program in its application's list; nothing when it has none.
std::optional<std::string_view> folderName(const LinuxApplication& browser,
                                           ProcessIdentifier process) {
  const std::string program = ProcessTable::executable(process);
  const auto& programs = browser.executables;
  const auto found =
      std::ranges::find_if(programs, [&](std::string_view one) { return program.ends_with(one); });
  const auto index = static_cast<std::size_t>(found - programs.begin());
  if (index >= browser.profileFolders.size()) return std::nullopt;
  return browser.profileFolders[index];
}

/// Where the process's profile may be, likeliest first.
std::vector<std::filesystem::path> profilesOf(const LinuxApplication& browser,
                                              ProcessIdentifier process,
                                              const std::vector<std::string>& arguments) {
  const std::filesystem::path workingFolder = ProcessTable::workingFolder(process);
  std::vector<std::filesystem::path> profiles;
  for (const std::string& value : valuesOf(arguments, profileSwitch)) {
    // An absolute path stays as it is.
    profiles.push_back(workingFolder / value);
  }
  if (!profiles.empty()) return profiles;
  std::filesystem::path profile = folderIn(process, "CHROME_USER_DATA_DIR");
  if (profile.empty()) {
    const std::optional<std::string_view> name = folderName(browser, process);
    if (!name) return {};
    profile = configFolderOf(process) / *name;
  }
  return {workingFolder / profile};
}

std::optional<DebuggingAddress> socketOf(const LinuxApplication& browser,
                                         ProcessIdentifier process) {
  const std::vector<std::string> arguments = ProcessTable::arguments(process);
  if (valuesOf(arguments, portSwitch).empty()) return std::nullopt;
  for (const std::filesystem::path& profile : profilesOf(browser, process, arguments)) {
    if (auto address = readDebuggingAddress(profile)) return address;
  }
  return std::nullopt;
}

}  // namespace

std::vector<BrowserInstance> browserInstances(std::string_view bundleID) {
  const LinuxApplication* browser = LinuxApplications::withBundleID(bundleID);
  if (browser == nullptr || browser->profileFolders.empty()) return {};
  std::vector<BrowserInstance> instances;
  for (const ProcessIdentifier process : LinuxApplications::processes(*browser)) {
    instances.push_back({.process = process, .socket = socketOf(*browser, process)});
  }
  return instances;
}

}  // namespace talmo
