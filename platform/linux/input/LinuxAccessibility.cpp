#include "platform/linux/input/LinuxAccessibility.h"

#include <memory>
#include <ranges>
#include <utility>

#include "platform/linux/input/MediaKeyGrabs.h"
#include "platform/linux/input/XProcessWindows.h"
#include "platform/linux/x11/XConnection.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("event-tap");

/// What keeps a tap from having the keys, in words.
std::optional<std::string> findObstacle() {
  const std::unique_ptr<XConnection> connection = XConnection::open();
  if (!connection) return "there is no X display to capture media keys on";
  return MediaKeyGrabs(*connection).obstacle();
}

}  // namespace

bool LinuxAccessibility::isProcessTrusted() {
  switch (eventTap_.takeKeyHold()) {
    case KeyHold::had:
      obstacle_.reset();
      return true;
    case KeyHold::lost:
    case KeyHold::refused:
      return false;
    case KeyHold::none:
      break;
  }
  std::optional<std::string> obstacle = findObstacle();
  if (obstacle && obstacle != obstacle_) log.error("%{public}s", *obstacle);
  obstacle_ = std::move(obstacle);
  return !obstacle_;
}

bool LinuxAccessibility::isProcessTrustedWithPrompt(bool) {
  return isProcessTrusted();
}

std::vector<std::string> LinuxAccessibility::windowTitles(ProcessIdentifier process) {
  std::vector<std::string> titles;
  const std::unique_ptr<XConnection> connection = XConnection::open();
  if (!connection) return titles;
  const std::vector<xcb_window_t> windows = windowsOfProcess(*connection, process);
  for (const xcb_window_t window : windows | std::views::reverse) {
    std::vector<std::string> texts = connection->texts(window, "_NET_WM_NAME");
    if (!texts.empty() && !texts.front().empty()) titles.push_back(std::move(texts.front()));
  }
  return titles;
}

}  // namespace talmo
