#pragma once

#include <array>
#include <cstdint>

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

namespace talmo {

/// A keysym and the auxiliary-control key type that it stands for.
struct MediaKeysym {
  xkb_keysym_t keysym = XKB_KEY_NoSymbol;
  /// `NX_KEYTYPE_PLAY` (16) to `NX_KEYTYPE_REWIND` (20) of IOKit's ev_keymap.h.
  std::uint8_t code = 0;
};

/// The keysyms of media keys. A keyboard with a key for pausing alone means the same by it as one
/// with a common key.
inline constexpr std::array<MediaKeysym, 6> mediaKeysyms{{
    {.keysym = XKB_KEY_XF86AudioPlay, .code = 16},
    {.keysym = XKB_KEY_XF86AudioPause, .code = 16},
    {.keysym = XKB_KEY_XF86AudioNext, .code = 17},
    {.keysym = XKB_KEY_XF86AudioPrev, .code = 18},
    {.keysym = XKB_KEY_XF86AudioForward, .code = 19},
    {.keysym = XKB_KEY_XF86AudioRewind, .code = 20},
}};

/// The key type of a keysym; 0 when it is no media key's.
constexpr std::uint8_t mediaKeyCode(xkb_keysym_t keysym) {
  for (const MediaKeysym& media : mediaKeysyms) {
    if (media.keysym == keysym) return media.code;
  }
  return 0;
}

}  // namespace talmo
