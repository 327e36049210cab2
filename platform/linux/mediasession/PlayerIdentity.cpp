#include "platform/linux/mediasession/PlayerIdentity.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/linux/applications/LinuxApplications.h"

namespace talmo {
namespace {

constexpr std::string_view prefix = "org.mpris.MediaPlayer2.";
constexpr std::string_view instance = ".instance";

// Each mirrors players that are on the bus themselves, or that are on another machine. What follows
// a dot belongs to it.
constexpr std::array<std::string_view, 3> mirrors{"playerctld", "kdeconnect",
                                                  "plasma-browser-integration"};

// File names have no more.
constexpr std::size_t longestDesktopEntry = 255;

bool isOrBeginsWith(std::string_view name, std::string_view first, std::string_view separator) {
  if (!name.starts_with(first)) return false;
  name.remove_prefix(first.size());
  return name.empty() || name.starts_with(separator);
}

/// The application with one of its `names` for this player.
const LinuxApplication* find(std::vector<std::string_view> LinuxApplication::* names,
                             std::string_view player) {
  const auto& all = LinuxApplications::all();
  const auto found = std::ranges::find_if(all, [&](const LinuxApplication& row) {
    return std::ranges::any_of(
        row.*names, [&](std::string_view name) { return isOrBeginsWith(player, name, instance); });
  });
  return found == all.end() ? nullptr : &*found;
}

/// The id of a desktop entry, without the suffix that some players leave there; empty when it
/// cannot be one.
std::string_view plausible(std::string_view desktopEntry) {
  constexpr std::string_view suffix = ".desktop";
  if (desktopEntry.ends_with(suffix)) desktopEntry.remove_suffix(suffix.size());
  const auto isAllowed = [](char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '.' || letter == '-' || letter == '_';
  };
  if (desktopEntry.size() > longestDesktopEntry || desktopEntry.starts_with('.') ||
      !std::ranges::all_of(desktopEntry, isAllowed)) {
    return {};
  }
  return desktopEntry;
}

}  // namespace

bool isPlayerName(std::string_view busName) {
  if (!busName.starts_with(prefix) || busName.size() == prefix.size()) return false;
  busName.remove_prefix(prefix.size());
  return std::ranges::none_of(
      mirrors, [&](std::string_view mirror) { return isOrBeginsWith(busName, mirror, "."); });
}

std::string bundleIdentifierOf(std::string_view busName, std::string_view executable,
                               std::string_view desktopEntry) {
  std::string_view player = busName;
  if (player.starts_with(prefix)) player.remove_prefix(prefix.size());
  const LinuxApplication* application = find(&LinuxApplication::playerNames, player);
  if (application == nullptr) application = LinuxApplications::withExecutable(executable);
  // Every program that has a browser inside goes by the name of that browser's sessions.
  if (application == nullptr && executable.empty()) {
    application = find(&LinuxApplication::sessionNames, player);
  }
  if (application != nullptr) return std::string(application->bundleID);
  if (const std::string_view entry = plausible(desktopEntry); !entry.empty()) {
    return std::string(entry);
  }
  // A name that begins with the word is a name still.
  const std::size_t end = player.find(instance);
  return std::string(end == 0 ? player : player.substr(0, end));
}

}  // namespace talmo
