#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <cstdint>
#include <optional>

#include "platform/TapEvent.h"

namespace talmo {

/// A Quartz event in an event tap's callback, which owns it.
class MacTapEvent : public TapEvent {
 public:
  /// `event` may be null with a notice about the tap.
  MacTapEvent(CGEventType type, CGEventRef event) : type_(type), event_(event) {}

  std::uint32_t type() const override { return type_; }

  /// By AppKit, whose event is all that this allocates.
  std::optional<SystemDefinedEvent> systemDefined() const override;

 private:
  const CGEventType type_;
  const CGEventRef event_;
};

}  // namespace talmo
