#include "platform/macos/input/MacKeyEvents.h"

#include <CoreGraphics/CoreGraphics.h>

#include "platform/macos/CFOwned.h"

namespace talmo {

void MacKeyEvents::post(const KeyboardEvent& event, ProcessIdentifier process) {
  const CFOwned<CGEventSourceRef> source(CGEventSourceCreate(kCGEventSourceStateHIDSystemState));
  // Without a source, it is made all the same.
  const CFOwned<CGEventRef> made(
      CGEventCreateKeyboardEvent(source.get(), event.keyCode, event.isKeyDown));
  if (!made) return;
  CGEventSetFlags(made.get(), event.flags);
  CGEventPostToPid(process, made.get());
}

}  // namespace talmo
