#include "platform/linux/input/MediaKeyGrabs.h"

#include <array>

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

constexpr const char* noMap = "the X server gives no keyboard map";

std::string isGrabbedByAnother(const std::pair<const XKeyPlace, xkb_keysym_t>& key) {
  return nameOf(key.second) + " (keycode " + std::to_string(key.first.keycode) +
         ") is grabbed by another program";
}

}  // namespace

bool MediaKeyGrabs::update() {
  std::unique_ptr<XKeymap> keymap = XKeymap::load(connection_);
  if (!keymap) {
    if (!connection_.isDead()) log.error("%{public}s", noMap);
    return false;
  }
  keymap_ = std::move(keymap);

  xcb_connection_t* const server = connection_.get();
  const xcb_window_t root = connection_.root();
  const Keys keys = wanted(*keymap_);
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
  std::vector<Request> requests;
  for (const Key& key : keys) {
    if (!grabbed_.contains(key.first)) requests.push_back(grab(key));
  }
  bool areHad = true;
  for (const Request& request : requests) {
    const Key& key = request.first;
    if (isGranted(request)) {
      grabbed_.insert(key);
      isGrabbed_.set(bit(key.first));
      hasChanged = true;
    } else if (areHad) {
      areHad = false;
      log.error("%{public}s", isGrabbedByAnother(key));
    }
  }
  if (hasChanged && !isFirst) log.info("media keys regrabbed");
  return areHad && !connection_.isDead();
}

std::optional<std::string> MediaKeyGrabs::obstacle() const {
  const std::unique_ptr<XKeymap> keymap = XKeymap::load(connection_);
  if (!keymap) return noMap;
  xcb_connection_t* const server = connection_.get();
  std::vector<Request> requests;
  for (const Key& key : wanted(*keymap)) {
    requests.push_back(grab(key));
    xcb_ungrab_key(server, key.first.keycode, connection_.root(), key.first.modifiers);
    // Frees the keyboard in case the key was pressed between the two and stopped it.
    xcb_allow_events(server, XCB_ALLOW_REPLAY_KEYBOARD, XCB_CURRENT_TIME);
  }
  // All of it goes out at once, before any answer is waited for.
  xcb_flush(server);
  std::optional<std::string> obstacle;
  for (const Request& request : requests) {
    if (!isGranted(request) && !obstacle) obstacle = isGrabbedByAnother(request.first);
  }
  if (connection_.isDead()) return noMap;
  return obstacle;
}

MediaKeyGrabs::Request MediaKeyGrabs::grab(const Key& key) const {
  return {key, xcb_grab_key_checked(connection_.get(), 0, connection_.root(), key.first.modifiers,
                                    key.first.keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC)};
}

bool MediaKeyGrabs::isGranted(const Request& request) const {
  const XReply<xcb_generic_error_t> error(xcb_request_check(connection_.get(), request.second));
  return !error;
}

std::uint8_t MediaKeyGrabs::code(xcb_keycode_t keycode, std::uint16_t state) const {
  if (!isGrabbed_.test(bit({.keycode = keycode, .modifiers = state}))) return 0;
  return mediaKeyCode(keymap_->keysym(keycode, state));
}

MediaKeyGrabs::Keys MediaKeyGrabs::wanted(const XKeymap& keymap) {
  Keys keys;
  for (const MediaKeysym& media : mediaKeysyms) {
    for (const XKeyPlace& place : keymap.places(media.keysym)) {
      for (const std::uint16_t locks : keymap.lockCombinations()) {
        const XKeyPlace key{.keycode = place.keycode,
                            .modifiers = static_cast<std::uint16_t>(place.modifiers | locks)};
        // A lock can shift a key to another level.
        if (keymap.stateFor(key, media.keysym)) keys.emplace(key, media.keysym);
      }
    }
  }
  return keys;
}

}  // namespace talmo
