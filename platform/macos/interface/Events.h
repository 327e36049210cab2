#pragma once

#import <AppKit/AppKit.h>
#include <optional>

#include "platform/InterfaceEvent.h"

namespace talmo {

/// The event as the program knows it; nothing for nil and for one of a type that it does not know.
std::optional<InterfaceEvent> interfaceEvent(NSEvent* event);

}  // namespace talmo
