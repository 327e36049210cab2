#include "platform/linux/applications/SettingsApplication.h"

#include <cstdlib>
#include <string_view>
#include <vector>

namespace talmo {
namespace {

constexpr std::string_view scheme = "x-apple.systempreferences:";

struct Desktop {
  /// What it calls itself in XDG_CURRENT_DESKTOP.
  std::string_view name;
  /// The entries of its settings, the best first.
  std::vector<std::string_view> entries;
};

const std::vector<Desktop>& desktops() {
  static const std::vector<Desktop> all{
      {"GNOME", {"gnome-keyboard-panel", "org.gnome.Settings", "gnome-control-center"}},
      {"KDE", {"kcm_keys", "systemsettings"}},
      {"XFCE", {"xfce-keyboard-settings", "xfce-settings-manager"}},
      {"X-Cinnamon", {"cinnamon-settings-keyboard", "cinnamon-settings"}},
      {"MATE", {"mate-keybinding", "matecc"}},
      {"LXQt", {"lxqt-config-globalkeyshortcuts", "lxqt-config"}},
  };
  return all;
}

/// Whether the session says that it is that desktop's; its names are separated by colons.
bool isCurrent(const Desktop& desktop) {
  const char* const value = std::getenv("XDG_CURRENT_DESKTOP");
  const std::string names = ":" + std::string(value == nullptr ? "" : value) + ":";
  return names.find(":" + std::string(desktop.name) + ":") != std::string::npos;
}

}  // namespace

std::optional<DesktopEntry> settingsApplicationFor(const std::string& url) {
  if (!url.starts_with(scheme)) return std::nullopt;
  for (const bool ofTheSession : {true, false}) {
    for (const Desktop& desktop : desktops()) {
      if (isCurrent(desktop) != ofTheSession) continue;
      if (std::optional<DesktopEntry> entry = DesktopEntry::firstOf(desktop.entries)) return entry;
    }
  }
  return std::nullopt;
}

}  // namespace talmo
