#include "platform/macos/input/MacTapEvent.h"

#import <AppKit/AppKit.h>

namespace talmo {

std::optional<SystemDefinedEvent> MacTapEvent::systemDefined() const {
  if (event_ == nullptr) return std::nullopt;
  NSEvent* const event = [NSEvent eventWithCGEvent:event_];
  // An event of another type raises an exception when it is asked for the two.
  if (event.type != NSEventTypeSystemDefined) return std::nullopt;
  return SystemDefinedEvent{.subtype = event.subtype, .data1 = event.data1};
}

}  // namespace talmo
