#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/linux/x11/XConnection.h"
#include "tests/backend/interface/view/AccessibleTree.h"
#include "tests/desktop/show/HelperView.h"
#include "tests/desktop/show/ShowReport.h"
#include "tests/desktop/show/Wallpaper.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/MousePresser.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/PrivateTray.h"
#include "tests/support/ScreenWindows.h"
#include "tests/support/TalmoProcess.h"

namespace talmo::test {

/// A media key as it is pressed.
struct ShowKey {
  const char* what;
  const char* keysym;
  /// What Talmo calls the key in its log.
  const char* logged;
};

inline constexpr ShowKey playPauseKey{"play/pause", "XF86AudioPlay", "playPause"};
inline constexpr ShowKey nextKey{"next", "XF86AudioNext", "next"};
inline constexpr ShowKey previousKey{"previous", "XF86AudioPrev", "previous"};

/// The private desktop of the show, with the hands on its keyboard and mouse, somebody's window in
/// front, the running Talmo, and everything that is said about them.
class ShowDesktop {
 public:
  static constexpr std::chrono::milliseconds patience{20'000};

  ShowDesktop();

  const PrivateDesktop& desktop() const { return desktop_; }
  ShowReport& report() { return report_; }
  KeyPresser& keys() { return keys_; }
  MousePresser& mouse() { return mouse_; }
  ScreenWindows& windows() { return windows_; }
  TalmoProcess& talmo() { return *talmo_; }

  /// Moves a window to a place on the screen.
  void move(std::uint32_t window, int x, int y);

  /// Says what was seen, and shows what Talmo has logged when it is not good. What is `good`.
  bool check(const std::string& seen, bool good);

  /// Waits until that is so; whether it is. Throws when the show is interrupted.
  static bool await(const std::function<bool()>& condition);

  /// Starts Talmo with this selection, or with the settings as they are. Whether its icon came into
  /// the tray.
  bool startTalmo(const std::string& selection);
  bool startTalmo();

  /// Talmo's settings as they are stored; an empty object when there are none.
  nlohmann::json settings() const;

  /// Whether Talmo shows this text.
  bool isShown(const std::string& text);

  /// Clicks what Talmo shows under that role and name. Whether it was there.
  bool click(const std::string& role, const std::string& name);

  void clickIcon(std::uint8_t button = MousePresser::left);

  /// Brings somebody else's window to the front, so that it has the keyboard.
  void focusWindow();

  /// Presses a key and waits until `reacted`; says both, `sight` being what is seen of who has to
  /// react. Whether it did. Throws when the show is interrupted.
  bool press(const ShowKey& key, const std::function<std::string()>& sight,
             const std::function<bool()>& reacted);

  /// Waits until the helper sees what it should; says it. Whether it does.
  bool helperSees(
      const std::function<bool(const std::optional<AdapterNowPlayingSnapshot>&)>& isRight);

  /// Lets time pass. Throws when the show is interrupted.
  static void wait(std::chrono::milliseconds time);

  /// Types a letter into the window in front and says whether it got that and no key before it.
  bool windowGotNoKeys();

  /// The same for a press of the key, which nobody takes before the window.
  bool windowGets(const ShowKey& key);

  /// Ends Talmo and says whether it ended in order.
  bool endTalmo();

  /// Waits for the end of a Talmo that was asked to; says whether it came in order.
  bool awaitEnd(const std::string& how);

  /// Keeps a picture of a part of the screen, or of all of it, once `still`, or all that is in the
  /// picture, does not change any more.
  void takePicture(const std::string& name, PixelArea area = {},
                   std::optional<PixelArea> still = std::nullopt);

  /// Says where the pictures and Talmo's log are.
  void sum() const;

 private:
  /// What Talmo has logged since the last time.
  std::string newLog();

  ShowReport report_;
  PrivateDesktop desktop_;
  const std::unique_ptr<XConnection> connection_ = XConnection::open(desktop_.displayName());
  Wallpaper wallpaper_{desktop_.displayName()};
  const std::unique_ptr<TestProcess> compositor_;
  PrivateTray tray_{desktop_};
  FocusWindow window_;
  KeyPresser keys_;
  MousePresser mouse_;
  ScreenWindows windows_;
  HelperView helper_;
  AccessibleTree tree_;
  std::unique_ptr<TalmoProcess> talmo_;
  std::size_t shown_ = 0;
  std::vector<std::filesystem::path> pictures_;
};

/// From now on an interruption (Ctrl-C) takes the desktop down in order.
void stopShowAtInterruption();

}  // namespace talmo::test
