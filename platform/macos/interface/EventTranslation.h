#pragma once

#include <cstdint>
#include <optional>

#include "platform/InterfaceEvent.h"
#include "platform/macos/interface/EventFields.h"
#include "platform/WindowIdentifier.h"

namespace talmo {

/// The event as the program knows it; nothing for one of a type that it does not know.
std::optional<InterfaceEvent> interfaceEventOf(const EventFields& fields);

/// Of a window's number, which is 0 or less while the window server has no window for it.
WindowIdentifier windowIdentifierOf(std::int64_t windowNumber);

}  // namespace talmo
