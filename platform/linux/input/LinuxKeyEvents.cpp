#include "platform/linux/input/LinuxKeyEvents.h"

#include <utility>
#include <vector>

#include <xkbcommon/xkbcommon-keysyms.h>

#include "platform/linux/input/XProcessWindow.h"
#include "platform/linux/x11/XReply.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

// Quartz's modifier bits (CGEventTypes.h).
constexpr std::uint64_t shiftFlag = 0x20000;
constexpr std::uint64_t controlFlag = 0x40000;
constexpr std::uint64_t commandFlag = 0x100000;

/// What X calls the keys of HIToolbox's Events.h.
constexpr xkb_keysym_t keysymOf(std::uint16_t keyCode) {
  switch (keyCode) {
    case 35:
      return XKB_KEY_p;
    case 40:
      return XKB_KEY_k;
    case 45:
      return XKB_KEY_n;
    case 49:
      return XKB_KEY_space;
    case 123:
      return XKB_KEY_Left;
    case 124:
      return XKB_KEY_Right;
    default:
      return XKB_KEY_NoSymbol;
  }
}

std::uint16_t modifiersOf(std::uint64_t flags) {
  unsigned modifiers = 0;
  if ((flags & shiftFlag) != 0) modifiers |= XCB_MOD_MASK_SHIFT;
  if ((flags & (controlFlag | commandFlag)) != 0) modifiers |= XCB_MOD_MASK_CONTROL;
  return static_cast<std::uint16_t>(modifiers);
}

}  // namespace

void LinuxKeyEvents::post(const KeyboardEvent& event, ProcessIdentifier process) {
  std::optional<xkb_keysym_t> exception;
  if (strokeException_) exception = strokeException_(event, process);
  const MutexLock lock(mutex_);
  const xkb_keysym_t keysym = exception.value_or(keysymOf(event.keyCode));
  if (keysym == XKB_KEY_NoSymbol || !connect()) return;
  const xcb_window_t window = windowFor(event, process);
  // The answers about the window have brought in every change of the map that came before them.
  if (window == XCB_WINDOW_NONE || !loadKeymap()) return;
  const std::vector<XKeyPlace> places = keymap_->places(keysym);
  if (places.empty()) return;
  const std::optional<std::uint16_t> state = keymap_->stateFor(places.front(), keysym);
  if (!state) return;

  xcb_key_press_event_t key{};
  key.response_type = event.isKeyDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
  key.detail = places.front().keycode;
  key.time = XCB_CURRENT_TIME;
  key.root = connection_->root();
  key.event = window;
  key.state = static_cast<std::uint16_t>(*state | (exception ? 0 : modifiersOf(event.flags)));
  key.same_screen = 1;
  xcb_send_event(connection_->get(), 1, window,
                 event.isKeyDown ? XCB_EVENT_MASK_KEY_PRESS : XCB_EVENT_MASK_KEY_RELEASE,
                 reinterpret_cast<const char*>(&key));
  xcb_flush(connection_->get());
}

/// Makes sure of a living connection.
bool LinuxKeyEvents::connect() {
  if (connection_ && !connection_->isDead()) return true;
  keymap_.reset();
  pressed_ = {};
  connection_ = XConnection::open();
  if (connection_) XKeymap::watch(*connection_);
  return connection_ != nullptr;
}

/// Makes sure of a keyboard map that is up to date.
bool LinuxKeyEvents::loadKeymap() {
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
    if (XKeymap::isChange(*connection_, *event)) keymap_.reset();
  }
  if (!keymap_) keymap_ = XKeymap::load(*connection_);
  return keymap_ != nullptr;
}

xcb_window_t LinuxKeyEvents::windowFor(const KeyboardEvent& event, ProcessIdentifier process) {
  if (!event.isKeyDown && pressed_.process == process) {
    return std::exchange(pressed_, {}).window;
  }
  const xcb_window_t window = mainWindowOfProcess(*connection_, process);
  if (event.isKeyDown) pressed_ = {.process = process, .window = window};
  return window;
}

}  // namespace talmo
