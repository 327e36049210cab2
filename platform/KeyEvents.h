#pragma once

#include "platform/KeyboardEvent.h"
#include "platform/ProcessIdentifier.h"

namespace talmo {

/// Synthesized key events, posted to one process and to nobody else.
///
/// Called by `KeystrokeController` on the command queue.
class KeyEvents {
 public:
  virtual ~KeyEvents() = default;

  /// Makes the event from the HID system state, sets its flags and posts it to the process without
  /// bringing it forward. An event that cannot be made, or a process that takes none, is skipped in
  /// silence. Returns without waiting for the process.
  virtual void post(const KeyboardEvent& event, ProcessIdentifier process) = 0;
};

}  // namespace talmo
