#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "tests/desktop/show/HelperView.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/PrivateDesktop.h"
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

/// The private desktop of the show, with the hand on its keyboard, somebody's window in front, the
/// running Talmo, and everything that is printed about them.
class ShowDesktop {
 public:
  static constexpr std::chrono::milliseconds patience{20'000};

  ShowDesktop();

  const PrivateDesktop& desktop() const { return desktop_; }

  /// Starts Talmo with this selection and prints its first lines under a heading.
  void startTalmo(const std::string& selection, const std::string& heading);

  /// Brings somebody else's window to the front, so that it has the keyboard.
  void focusWindow();

  /// Presses a key and waits until `reacted`; prints both, `subject` being who has to react and
  /// `sight` what is seen of it. Whether it did. Throws when the show is interrupted.
  bool press(const ShowKey& key, const std::string& subject,
             const std::function<std::string()>& sight, const std::function<bool()>& reacted);

  /// Waits until the helper sees what it should; prints it. Whether it does.
  bool helperSees(
      const std::function<bool(const std::optional<AdapterNowPlayingSnapshot>&)>& isRight);

  /// Lets time pass and prints why. Throws when the show is interrupted.
  static void wait(std::chrono::milliseconds time, const std::string& why);

  /// Types a letter into the window in front and prints whether it got that and no key before it.
  bool windowGotNoKeys();

  /// Ends Talmo and prints whether it ended in order.
  bool endTalmo();

  /// Prints one more result. The result.
  static bool print(const std::string& what, bool good);

  /// Writes a picture of the desktop beside the program.
  void takePicture(const std::string& name);

 private:
  /// What Talmo has logged since the last time.
  void printLog();

  PrivateDesktop desktop_;
  FocusWindow window_;
  KeyPresser keys_;
  HelperView helper_;
  std::unique_ptr<TalmoProcess> talmo_;
  std::size_t printed_ = 0;
};

/// From now on an interruption (Ctrl-C) takes the desktop down in order.
void stopShowAtInterruption();

}  // namespace talmo::test
