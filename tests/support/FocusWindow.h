#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/x11/XConnection.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "tests/support/RecordedKey.h"

namespace talmo::test {

/// A window like any program's, on a connection and a thread of its own, that keeps the key events
/// that it gets. Its functions may be called on any thread.
class FocusWindow {
 public:
  struct Options {
    std::string title = "focus window";
    /// What it says its process is (_NET_WM_PID); 0 for not saying.
    std::int32_t pid = 0;
    std::uint16_t width = 300;
    std::uint16_t height = 200;
    bool isMapped = true;
    /// The name of its _NET_WM_WINDOW_TYPE; none when empty.
    std::string type;
    /// Both halves of its WM_CLASS; none when empty.
    std::string windowClass;
    /// The window that it belongs to (WM_TRANSIENT_FOR); 0 for none.
    std::uint32_t transientFor = 0;
  };

  /// Makes the window and waits until it is on the screen (when it is to be). Throws when the
  /// display cannot be reached.
  explicit FocusWindow(const std::string& display) : FocusWindow(display, Options{}) {}
  FocusWindow(const std::string& display, const Options& options);
  ~FocusWindow();
  FocusWindow(const FocusWindow&) = delete;
  FocusWindow& operator=(const FocusWindow&) = delete;

  std::uint32_t id() const { return window_; }

  /// Takes the input focus, without asking any window manager, and waits until it has it.
  void focus();

  /// The key events so far, in the order of arrival.
  std::vector<RecordedKey> keys() const;

  /// The same in short: "+a -a" for a press and a release of A.
  std::string transcript() const;

  void clear();

 private:
  void run();
  void stop();

  std::unique_ptr<XConnection> connection_;
  std::uint32_t window_ = 0;
  // A message to the window itself that ends its thread.
  std::uint32_t quitMessage_ = 0;
  mutable Mutex mutex_;
  std::vector<RecordedKey> keys_ TALMO_GUARDED_BY(mutex_);
  bool isMapped_ TALMO_GUARDED_BY(mutex_) = false;
  std::thread thread_;
};

}  // namespace talmo::test
