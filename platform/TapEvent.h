#pragma once

#include <cstdint>
#include <optional>

#include "platform/SystemDefinedEvent.h"

namespace talmo {

/// An event, or a notice about the tap, on its way through an event tap. Lives for one callback,
/// on the tap's thread.
class TapEvent {
 public:
  virtual ~TapEvent() = default;

  /// The event type (`CGEventType`): 14 is system-defined, 0xFFFFFFFE and 0xFFFFFFFF are the
  /// notices that the tap was disabled by a time-out and by user input.
  virtual std::uint32_t type() const = 0;

  /// The event as the toolkit reads it; nothing when it cannot be converted.
  virtual std::optional<SystemDefinedEvent> systemDefined() const = 0;
};

}  // namespace talmo
