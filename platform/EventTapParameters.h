#pragma once

#include <cstdint>

#include "platform/TapEvent.h"
#include "platform/TapVerdict.h"

namespace talmo {

/// Called for each event on the thread whose run loop serves the tap. It answers at once: while it
/// runs, the keyboard waits.
using EventTapCallback = TapVerdict (*)(TapEvent& event, void* context);

/// What an event tap is created with. The numbers are Quartz's (CGEventTypes.h).
struct EventTapParameters {
  std::uint32_t location = 0;
  std::uint32_t placement = 0;
  std::uint32_t options = 0;
  /// One bit, 1 << type, for every event type of interest.
  std::uint64_t eventsOfInterest = 0;
  EventTapCallback callback = nullptr;
  /// Handed to the callback, not kept alive by the tap.
  void* context = nullptr;
};

}  // namespace talmo
