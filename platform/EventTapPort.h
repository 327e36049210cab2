#pragma once

namespace talmo {

/// An installed event tap. Owned by whoever created it; letting go of it removes the tap.
class EventTapPort {
 public:
  virtual ~EventTapPort() = default;

  /// Switches the tap on or off; a tap that is off passes everything. Any thread.
  virtual void enable(bool on) = 0;

  /// Removes the tap for good; its callback does not run again. On the thread whose run loop
  /// serves the tap, so that the callback is not running at that moment.
  virtual void invalidate() = 0;
};

}  // namespace talmo
