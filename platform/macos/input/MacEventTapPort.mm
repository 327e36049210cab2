#include "platform/macos/input/MacEventTapPort.h"

#include "platform/macos/input/MacTapEvent.h"

namespace talmo {

std::shared_ptr<MacEventTapPort> MacEventTapPort::open(const EventTapParameters& parameters) {
  const std::shared_ptr<MacEventTapPort> opened(new MacEventTapPort(parameters));
  return opened->port_ ? opened : nullptr;
}

MacEventTapPort::MacEventTapPort(const EventTapParameters& parameters)
    : callback_(parameters.callback),
      context_(parameters.context),
      port_(CGEventTapCreate(static_cast<CGEventTapLocation>(parameters.location),
                             static_cast<CGEventTapPlacement>(parameters.placement),
                             static_cast<CGEventTapOptions>(parameters.options),
                             parameters.eventsOfInterest, decide, this)) {}

MacEventTapPort::~MacEventTapPort() {
  if (port_) invalidate();
}

void MacEventTapPort::enable(bool on) {
  CGEventTapEnable(port_.get(), on);
}

void MacEventTapPort::invalidate() {
  // Again, it does nothing.
  CFMachPortInvalidate(port_.get());
}

CGEventRef MacEventTapPort::decide(CGEventTapProxy, CGEventType type, CGEventRef event,
                                   void* self) {
  const auto* const port = static_cast<const MacEventTapPort*>(self);
  TapVerdict verdict = TapVerdict::pass;
  // The thread's own pool is emptied only when the thread ends.
  @autoreleasepool {
    MacTapEvent shown(type, event);
    verdict = port->callback_(shown, port->context_);
  }
  return verdict == TapVerdict::consume ? nullptr : event;
}

}  // namespace talmo
