#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include <xcb/xcb.h>

#include "platform/KeyEvents.h"
#include "platform/linux/input/XKeymap.h"
#include "platform/linux/x11/XConnection.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Key events sent to a process's own window on $DISPLAY. Any thread; waits for the X server, never
/// for the process.
///
/// The keys known by their virtual key codes are those that players' strokes are made of: Space,
/// the left and right arrows, K, N and P. Command is sent as Control, as Linux programs have it.
class LinuxKeyEvents : public KeyEvents {
 public:
  /// The keysym to send to that process in place of an event, without its modifiers; nothing to
  /// send the event as it is. Called on every thread that posts.
  using StrokeExceptions =
      std::function<std::optional<std::uint32_t>(const KeyboardEvent&, ProcessIdentifier)>;

  explicit LinuxKeyEvents(StrokeExceptions strokeException)
      : strokeException_(std::move(strokeException)) {}

  void post(const KeyboardEvent& event, ProcessIdentifier process) override;

 private:
  struct Target {
    ProcessIdentifier process = 0;
    xcb_window_t window = XCB_WINDOW_NONE;
  };

  bool connect() TALMO_REQUIRES(mutex_);
  bool loadKeymap() TALMO_REQUIRES(mutex_);
  xcb_window_t windowFor(const KeyboardEvent& event, ProcessIdentifier process)
      TALMO_REQUIRES(mutex_);

  const StrokeExceptions strokeException_;
  Mutex mutex_;
  // Opened when first needed, and anew when the server has gone.
  std::unique_ptr<XConnection> connection_ TALMO_GUARDED_BY(mutex_);
  std::unique_ptr<XKeymap> keymap_ TALMO_GUARDED_BY(mutex_);
  // Where the last press went, for its release.
  Target pressed_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
