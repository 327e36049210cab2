#pragma once

#include <functional>
#include <optional>
#include <QPoint>

#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/MousePresser.h"
#include "tests/support/PixelArea.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/PrivateTray.h"
#include "tests/support/ScreenWindows.h"

namespace talmo::test {

/// The Linux backend with its interface, in the test's own process, on a private desktop with a
/// tray, another application's window and a hand on mouse and keyboard. Main thread.
class InterfaceDesk {
 public:
  InterfaceDesk();

  LinuxPlatform& services() { return platform_.services(); }
  MousePresser& mouse() { return mouse_; }
  KeyPresser& keys() { return keys_; }
  ScreenWindows& windows() { return windows_; }
  FocusWindow& other() { return other_; }
  const std::string& display() const { return desktop_.displayName(); }

  bool runUntil(const std::function<bool()>& condition) { return platform_.runUntil(condition); }

  /// Serves the main queue until that window of ours has the keys; throws when it never has.
  void waitForKeys(std::uint64_t window);

  /// The icon in the tray; throws when none comes.
  PixelArea icon();

  /// Where the window of the other application is.
  PixelArea otherArea();

  /// Clicks an item of the menu that is open, or that opens soon, whoever serves the main queue.
  void chooseFromMenu(const std::string& title);

  /// Presses Escape as soon as a menu is open.
  void dismissMenu();

 private:
  void whenMenuOpens(const std::function<void()>& act);

  PrivateDesktop desktop_;
  PrivateTray tray_{desktop_};
  FocusWindow other_{desktop_.displayName()};
  std::uint32_t otherWindow_ = 0;
  PlatformOnDesktop platform_;
  MousePresser mouse_{desktop_.displayName()};
  KeyPresser keys_{desktop_.displayName()};
  ScreenWindows windows_{desktop_.displayName()};
};

}  // namespace talmo::test
