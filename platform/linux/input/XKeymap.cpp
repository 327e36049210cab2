#include "platform/linux/input/XKeymap.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include "platform/linux/input/XkbProtocol.h"
#include "platform/linux/x11/XReply.h"

namespace talmo {
namespace {

constexpr std::uint16_t realModifiers = 0xFF;
constexpr unsigned groupShift = 13;
constexpr std::uint16_t groupMask = 3;

}  // namespace

std::unique_ptr<XKeymap> XKeymap::load(const XConnection& connection) {
  xcb_connection_t* const server = connection.get();
  if (xkb_x11_setup_xkb_extension(
          server, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
          XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr) == 0) {
    return nullptr;
  }
  const std::unique_ptr<xkb_context, Unref> context(xkb_context_new(static_cast<xkb_context_flags>(
      XKB_CONTEXT_NO_DEFAULT_INCLUDES | XKB_CONTEXT_NO_ENVIRONMENT_NAMES)));
  const std::int32_t device = xkb_x11_get_core_keyboard_device_id(server);
  if (!context || device < 0) return nullptr;
  Keymap keymap(
      xkb_x11_keymap_new_from_device(context.get(), server, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
  if (!keymap) return nullptr;
  State state(xkb_state_new(keymap.get()));
  if (!state) return nullptr;
  std::unique_ptr<XKeymap> loaded(new XKeymap(std::move(keymap), std::move(state)));
  loaded->findLocks(connection);
  return loaded;
}

void XKeymap::watch(const XConnection& connection) {
  constexpr std::uint16_t events =
      XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
  constexpr std::uint16_t parts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                  XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                  XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
  // The server takes no selection from a client that has not said that it knows the extension.
  xcb_discard_reply(connection.get(), xcb_xkb_use_extension(connection.get(), XCB_XKB_MAJOR_VERSION,
                                                            XCB_XKB_MINOR_VERSION)
                                          .sequence);
  xcb_xkb_select_events(connection.get(), XCB_XKB_ID_USE_CORE_KBD, events, 0, events, parts, parts,
                        nullptr);
}

bool XKeymap::isChange(const XConnection& connection, const xcb_generic_event_t& event) {
  const auto type = static_cast<std::uint8_t>(event.response_type & 0x7F);
  if (type == XCB_MAPPING_NOTIFY) {
    const auto& mapping = reinterpret_cast<const xcb_mapping_notify_event_t&>(event);
    return mapping.request != XCB_MAPPING_POINTER;
  }
  const xcb_query_extension_reply_t* const xkb =
      xcb_get_extension_data(connection.get(), &xcb_xkb_id);
  if (xkb == nullptr || xkb->present == 0 || type != xkb->first_event) return false;
  // All events of the extension share one number and carry their kind in the second byte.
  return event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY || event.pad0 == XCB_XKB_MAP_NOTIFY;
}

xkb_keysym_t XKeymap::keysym(xcb_keycode_t keycode, std::uint16_t state) const {
  const xkb_layout_index_t group = (state >> groupShift) & groupMask;
  xkb_state_update_mask(state_.get(), state & realModifiers, 0, 0, group, 0, 0);
  return xkb_state_key_get_one_sym(state_.get(), keycode);
}

std::optional<std::uint16_t> XKeymap::stateFor(XKeyPlace place, xkb_keysym_t wanted) const {
  const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(keymap_.get(), place.keycode);
  for (xkb_layout_index_t group = 0; group < groups; ++group) {
    const auto state = static_cast<std::uint16_t>(place.modifiers | (group << groupShift));
    if (keysym(place.keycode, state) == wanted) return state;
  }
  return std::nullopt;
}

std::vector<XKeyPlace> XKeymap::places(xkb_keysym_t wanted) const {
  std::vector<XKeyPlace> found;
  const auto first = std::max<xkb_keycode_t>(xkb_keymap_min_keycode(keymap_.get()), 8);
  const auto last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(keymap_.get()), 255);
  for (xkb_keycode_t keycode = first; keycode <= last; ++keycode) {
    const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(keymap_.get(), keycode);
    for (xkb_layout_index_t group = 0; group < groups; ++group) {
      const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(keymap_.get(), keycode, group);
      for (xkb_level_index_t level = 0; level < levels; ++level) {
        const xkb_keysym_t* symbols = nullptr;
        const int count =
            xkb_keymap_key_get_syms_by_level(keymap_.get(), keycode, group, level, &symbols);
        if (count != 1 || symbols[0] != wanted) continue;
        std::array<xkb_mod_mask_t, 16> masks{};
        const std::size_t ways = xkb_keymap_key_get_mods_for_level(
            keymap_.get(), keycode, group, level, masks.data(), masks.size());
        const auto fewest =
            std::min_element(masks.begin(), masks.begin() + static_cast<std::ptrdiff_t>(ways),
                             [](auto a, auto b) { return std::popcount(a) < std::popcount(b); });
        if (ways == 0 || (*fewest & ~xkb_mod_mask_t{realModifiers}) != 0) continue;
        found.push_back({.keycode = static_cast<xcb_keycode_t>(keycode),
                         .modifiers = static_cast<std::uint16_t>(*fewest)});
      }
    }
  }
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

void XKeymap::findLocks(const XConnection& connection) {
  std::vector<std::uint16_t> locks{XCB_MOD_MASK_LOCK};
  const XReply<xcb_get_modifier_mapping_reply_t> reply(xcb_get_modifier_mapping_reply(
      connection.get(), xcb_get_modifier_mapping(connection.get()), nullptr));
  if (reply) {
    const xcb_keycode_t* const keycodes = xcb_get_modifier_mapping_keycodes(reply.get());
    const std::size_t perModifier = reply->keycodes_per_modifier;
    for (const auto lock : {xkb_keysym_t{XKB_KEY_Num_Lock}, xkb_keysym_t{XKB_KEY_Scroll_Lock}}) {
      const std::vector<XKeyPlace> keys = places(lock);
      for (std::size_t index = 0; index < 8 * perModifier; ++index) {
        const auto bit = static_cast<std::uint16_t>(1U << (index / perModifier));
        const bool carries = std::any_of(keys.begin(), keys.end(), [&](const XKeyPlace& key) {
          return key.keycode == keycodes[index];
        });
        if (carries && std::find(locks.begin(), locks.end(), bit) == locks.end()) {
          locks.push_back(bit);
        }
      }
    }
  }
  lockCombinations_ = {0};
  for (const std::uint16_t lock : locks) {
    const std::size_t known = lockCombinations_.size();
    for (std::size_t index = 0; index < known; ++index) {
      lockCombinations_.push_back(static_cast<std::uint16_t>(lockCombinations_[index] | lock));
    }
  }
}

}  // namespace talmo
