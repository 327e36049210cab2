#include "platform/linux/input/MediaKeyGrabs.h"

#include <array>
#include <string>
#include <vector>

#include "platform/linux/input/MediaKeysyms.h"
#include "platform/linux/x11/XReply.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("event-tap");

std::string nameOf(xkb_keysym_t keysym) {
  std::array<char, 64> name{};
  xkb_keysym_get_name(keysym, name.data(), name.size());
  return name.data();
}

}  // namespace

bool MediaKeyGrabs::update() {
  std::unique_ptr<XKeymap> keymap = XKeymap::load(connection_);
  if (!keymap) {
    if (!connection_.isDead()) log.error("the X server gives no keyboard map");
    return false;
  }
  keymap_ = std::move(keymap);

  xcb_connection_t* const server = connection_.get();
  const xcb_window_t root = connection_.root();
  const Keys keys = wanted();
  const bool isFirst = grabbed_.empty();
  bool hasChanged = false;
  for (auto grab = grabbed_.begin(); grab != grabbed_.end();) {
    if (keys.contains(grab->first)) {
      ++grab;
      continue;
    }
    xcb_ungrab_key(server, grab->first.keycode, root, grab->first.modifiers);
    isGrabbed_.reset(bit(grab->first));
    grab = grabbed_.erase(grab);
    hasChanged = true;
  }

  // All are asked for before the first answer is waited for.
  std::vector<std::pair<Keys::const_iterator, xcb_void_cookie_t>> requests;
  for (auto key = keys.begin(); key != keys.end(); ++key) {
    if (grabbed_.contains(key->first)) continue;
    requests.emplace_back(
        key, xcb_grab_key_checked(server, 0, root, key->first.modifiers, key->first.keycode,
                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC));
  }
  bool areHad = true;
  for (const auto& [key, request] : requests) {
    const XReply<xcb_generic_error_t> error(xcb_request_check(server, request));
    if (!error) {
      grabbed_.insert(*key);
      isGrabbed_.set(bit(key->first));
      hasChanged = true;
    } else if (areHad) {
      areHad = false;
      log.error("%{public}s (keycode %d) is grabbed by another program", nameOf(key->second),
                key->first.keycode);
    }
  }
  if (hasChanged && !isFirst) log.info("media keys regrabbed");
  return areHad && !connection_.isDead();
}

std::uint8_t MediaKeyGrabs::code(xcb_keycode_t keycode, std::uint16_t state) const {
  if (!isGrabbed_.test(bit({.keycode = keycode, .modifiers = state}))) return 0;
  return mediaKeyCode(keymap_->keysym(keycode, state));
}

MediaKeyGrabs::Keys MediaKeyGrabs::wanted() const {
  Keys keys;
  for (const MediaKeysym& media : mediaKeysyms) {
    for (const XKeyPlace& place : keymap_->places(media.keysym)) {
      for (const std::uint16_t locks : keymap_->lockCombinations()) {
        const XKeyPlace key{.keycode = place.keycode,
                            .modifiers = static_cast<std::uint16_t>(place.modifiers | locks)};
        // A lock can shift a key to another level.
        if (keymap_->stateFor(key, media.keysym)) keys.emplace(key, media.keysym);
      }
    }
  }
  return keys;
}

}  // namespace talmo
