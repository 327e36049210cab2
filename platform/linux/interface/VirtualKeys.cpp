#include "platform/linux/interface/VirtualKeys.h"

#include "platform/InterfaceEvent.h"

namespace talmo {
namespace {

constexpr std::uint16_t noKey = 0xFFFF;

}  // namespace

std::uint16_t virtualKeyCode(int key) {
  switch (key) {
    case Qt::Key_Return:
      return 36;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return 48;
    case Qt::Key_Space:
      return 49;
    case Qt::Key_Escape:
      return 53;
    // The toolkit's name for the one of the keypad.
    case Qt::Key_Enter:
      return 76;
    case Qt::Key_Left:
      return 123;
    case Qt::Key_Right:
      return 124;
    case Qt::Key_Down:
      return 125;
    case Qt::Key_Up:
      return 126;
    default:
      return noKey;
  }
}

std::uint64_t heldModifiers(Qt::KeyboardModifiers modifiers) {
  std::uint64_t held = 0;
  if (modifiers.testFlag(Qt::ShiftModifier)) held |= InterfaceEvent::shift;
  if (modifiers.testFlag(Qt::ControlModifier)) held |= InterfaceEvent::control;
  if (modifiers.testFlag(Qt::AltModifier)) held |= InterfaceEvent::option;
  if (modifiers.testFlag(Qt::MetaModifier)) held |= InterfaceEvent::command;
  return held;
}

}  // namespace talmo
