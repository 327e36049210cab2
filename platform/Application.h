#pragma once

#include <optional>
#include <string>

#include "platform/InterfaceEvent.h"

namespace talmo {

/// This program as an application of the system. Main thread only, unless a function says
/// otherwise.
class Application {
 public:
  /// Posted to the notification centre when screens come, go or change their size
  /// (`NSApplicationDidChangeScreenParametersNotification`).
  static constexpr auto screenParametersDidChange =
      "NSApplicationDidChangeScreenParametersNotification";

  /// The alignment pattern of `NSHapticFeedbackManager`.
  static constexpr int alignmentFeedback = 1;

  virtual ~Application() = default;

  /// Brings the application to the front, for a window that the person has asked for.
  virtual void activate() = 0;

  /// Has the program end in order, as when the person quits it. Returns; the end follows.
  virtual void terminate() = 0;

  /// Shows the system's About panel for this program.
  virtual void orderFrontStandardAboutPanel() = 0;

  /// The click or key that is being handled; nothing when none is.
  virtual std::optional<InterfaceEvent> currentEvent() const = 0;

  /// Lets a device that can, and that is being touched, answer with a tap.
  virtual void performHapticFeedback(int pattern) = 0;

  /// The value of a variable of the process's environment; nothing when there is none. Any thread.
  virtual std::optional<std::string> environmentVariable(const std::string& name) const = 0;
};

}  // namespace talmo
