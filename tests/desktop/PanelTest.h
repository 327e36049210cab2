#pragma once

#include <optional>
#include <string>

#include "tests/desktop/DesktopTest.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/MousePresser.h"
#include "tests/support/PixelArea.h"
#include "tests/support/PrivateTray.h"
#include "tests/support/ScreenPicture.h"
#include "tests/support/ScreenWindows.h"

namespace talmo::test {

/// Talmo and its panel, on a desktop with two players, which are installed and run. Neither
/// makes a sound, so nothing on the panel moves by itself.
class PanelTest : public DesktopTest {
 protected:
  PanelTest();

  /// Brings up the tray, unless the test is about its absence, and starts Talmo; waits for its
  /// icon.
  void startWithTray(const std::optional<std::string>& selection);

  /// Where Talmo's icon in the tray is; nothing while it is not there.
  std::optional<PixelArea> icon();

  /// Talmo's windows.
  std::optional<ScreenWindows::Window> panel();
  std::optional<ScreenWindows::Window> menu();

  void clickIcon(std::uint8_t button = MousePresser::left);

  /// Clicks the icon and waits for the panel to be there and to show everything.
  PixelArea openPanel();

  bool waitForPanel();
  bool waitForNoPanel();

  /// Waits until the picture of the panel stays the same, and returns it.
  ScreenPicture settledPicture();

  /// Presses a key and returns where the panel's picture has changed.
  std::optional<PixelArea> changeBy(const std::string& keysym);

  /// The stored target; empty when there is none.
  std::string storedSelection();
  bool waitForSelection(const std::string& id);

  std::optional<PrivateTray> tray_;
  MousePresser mouse_;
  ScreenWindows windows_;
  FakePlayerProcess player_;
  FakePlayerProcess otherPlayer_;
};

}  // namespace talmo::test
