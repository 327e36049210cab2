#include "platform/linux/input/LinuxEventTapPort.h"

#include <chrono>
#include <utility>

#include "platform/linux/input/XkbProtocol.h"
#include "platform/linux/input/XKeymap.h"
#include "platform/linux/x11/XReply.h"
#include "platform/TapEvent.h"
#include "support/Logger.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

constexpr Logger log("event-tap");

// Quartz's, AppKit's and IOKit's numbers (NSEvent.h, ev_keymap.h).
constexpr std::uint32_t systemDefinedType = 14;
constexpr std::int16_t auxControlButtons = 8;
constexpr std::int64_t keyStateDown = 0x0A;
constexpr std::int64_t keyStateUp = 0x0B;

/// A change of the keyboard's map comes as a burst of notices; it is over when none came for so
/// long.
constexpr Duration burstEnd = 50ms;

/// No event waits longer in the server; one that seems to has its time from another clock.
constexpr Duration longestWait = 60s;

/// The time as in key events: an X server on this machine takes it from the same clock, and it
/// wraps around.
std::uint32_t serverTime() {
  const auto time = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

/// From one time of key events to another; negative when that is the earlier one.
Duration between(std::uint32_t from, std::uint32_t to) {
  return std::chrono::milliseconds(static_cast<std::int32_t>(to - from));
}

/// After how long the server repeats a key that it has down.
Duration repeatDelay(const XConnection& connection) {
  const XReply<xcb_xkb_get_controls_reply_t> controls(xcb_xkb_get_controls_reply(
      connection.get(), xcb_xkb_get_controls(connection.get(), XCB_XKB_ID_USE_CORE_KBD), nullptr));
  return std::chrono::milliseconds(controls ? controls->repeatDelay : 0);
}

class MediaKeyEvent : public TapEvent {
 public:
  explicit MediaKeyEvent(std::int64_t data1) : data1_(data1) {}

  std::uint32_t type() const override { return systemDefinedType; }
  std::optional<SystemDefinedEvent> systemDefined() const override {
    return SystemDefinedEvent{.subtype = auxControlButtons, .data1 = data1_};
  }

 private:
  const std::int64_t data1_;
};

/// Has a key that stays down arrive as repeated presses and one release. False without XKB.
bool turnOnDetectableRepeat(const XConnection& connection) {
  xcb_connection_t* const server = connection.get();
  const XReply<xcb_xkb_use_extension_reply_t> extension(xcb_xkb_use_extension_reply(
      server, xcb_xkb_use_extension(server, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
      nullptr));
  if (!extension || extension->supported == 0) return false;
  constexpr auto flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
  const XReply<xcb_xkb_per_client_flags_reply_t> flags(xcb_xkb_per_client_flags_reply(
      server, xcb_xkb_per_client_flags(server, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0),
      nullptr));
  return flags && (flags->value & flag) != 0;
}

}  // namespace

LinuxEventTapPort::Grip::Grip(std::unique_ptr<XConnection> first,
                              std::unique_ptr<XConnection> second)
    : grabber(std::move(first)),
      other(std::move(second)),
      grabs(*grabber),
      keyboard(*grabber, *other) {}

std::shared_ptr<LinuxEventTapPort> LinuxEventTapPort::open(const EventTapParameters& parameters,
                                                           Handlers handlers) {
  std::unique_ptr<XConnection> grabber = XConnection::open();
  std::unique_ptr<XConnection> other = XConnection::open();
  if (!grabber || !other) {
    log.error("there is no X display to capture media keys on");
    return nullptr;
  }
  if (!turnOnDetectableRepeat(*grabber) || !turnOnDetectableRepeat(*other)) {
    log.error("the X server tells no repeated key press from a new one");
    return nullptr;
  }
  std::shared_ptr<LinuxEventTapPort> port(new LinuxEventTapPort(parameters, std::move(handlers)));
  port->grip_ = std::make_unique<Grip>(std::move(grabber), std::move(other));
  port->descriptors_ = {xcb_get_file_descriptor(port->grip_->grabber->get()),
                        xcb_get_file_descriptor(port->grip_->other->get())};
  XKeymap::watch(*port->grip_->grabber);
  if (!port->grip_->grabs.update()) return nullptr;
  port->setHold(KeyHold::had);
  return port;
}

LinuxEventTapPort::~LinuxEventTapPort() {
  invalidate();
}

void LinuxEventTapPort::invalidate() {
  if (grip_) {
    xcb_ungrab_key(grip_->grabber->get(), XCB_GRAB_ANY, grip_->grabber->root(), XCB_MOD_MASK_ANY);
    grip_->keyboard.letGo();
    grip_.reset();
    regrabAt_.reset();
    forgetAllKeys();
  }
  setHold(KeyHold::none);
}

std::span<const int> LinuxEventTapPort::descriptors() const {
  if (!grip_) return {};
  return descriptors_;
}

void LinuxEventTapPort::serve() {
  // An answer that is waited for on one connection can bring in events of both.
  while (grip_) {
    if (serve(*grip_->grabber) || (grip_ && serve(*grip_->other))) continue;
    if (!grip_ || !regrabAt_ || std::chrono::steady_clock::now() < *regrabAt_) break;
    regrabAt_.reset();
    const bool areHad = grip_->grabs.update();
    if (!grip_->grabber->isDead()) setHold(areHad ? KeyHold::had : KeyHold::lost);
  }
  if (grip_ && (grip_->grabber->isDead() || grip_->other->isDead())) loseConnection();
}

/// Works off one event; returns whether there was one.
bool LinuxEventTapPort::serve(const XConnection& connection) {
  const XReply<xcb_generic_event_t> event(xcb_poll_for_event(connection.get()));
  if (!event) return false;
  const auto type = static_cast<std::uint8_t>(event->response_type & 0x7F);
  if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
    // A release has the form of a press.
    decide(reinterpret_cast<const xcb_key_press_event_t&>(*event), type == XCB_KEY_PRESS);
  } else if (XKeymap::isChange(connection, *event)) {
    regrabAt_ = std::chrono::steady_clock::now() + burstEnd;
  }
  return true;
}

void LinuxEventTapPort::decide(const xcb_key_press_event_t& event, bool isPress) {
  std::uint8_t code = down_[event.detail];
  if (code == 0 && isPress) code = grip_->grabs.code(event.detail, event.state);
  if (!isEnabled_) {
    forgetAllKeys();
    grip_->keyboard.pass(false);
    return;
  }
  const std::uint32_t now = serverTime();
  const TapVerdict verdict = code != 0 ? askForKey(event, code, isPress) : TapVerdict::pass;
  if (code != 0 && !isPress) repeats_[event.detail].until = now;
  servedAt_ = now;
  const bool hold = downCount_ > 0;
  if (verdict == TapVerdict::consume) {
    if (!grip_->keyboard.swallow(hold)) forgetAllKeys();
  } else if (!grip_->keyboard.pass(hold)) {
    forgetAllKeys();
  } else {
    forgetKeysThatAreUp();
  }
}

/// Whether the press of a key that is up may be a repeat of a press before it. The server takes a
/// waiting press up while the release waits behind it; repeats that it makes before that press is
/// answered for then come after the release.
bool LinuxEventTapPort::mayBeLateRepeat(const xcb_key_press_event_t& press) const {
  const Span& span = repeats_[press.detail];
  const Duration waited = between(press.time, serverTime());
  return waited >= Duration::zero() && waited < longestWait &&
         between(press.time, span.until) >= Duration::zero() &&
         between(span.from, press.time) >= repeatDelay(*grip_->grabber);
}

TapVerdict LinuxEventTapPort::askForKey(const xcb_key_press_event_t& event, std::uint8_t code,
                                        bool isPress) {
  const bool isDown = down_[event.detail] != 0;
  if (isPress && !isDown) {
    ++downCount_;
    isDoubtful_[event.detail] = mayBeLateRepeat(event);
    Span& span = repeats_[event.detail];
    // The server has taken it up when it came, or after the event before it.
    if (between(span.until, event.time) > Duration::zero()) {
      span.from = between(event.time, servedAt_) > Duration::zero() ? servedAt_ : event.time;
    }
  }
  if (!isPress) --downCount_;
  down_[event.detail] = isPress ? code : std::uint8_t{0};
  if (!isDoubtful_[event.detail]) return ask(code, isPress, isPress && isDown);
  // If anybody has pressed the key, its release is to come: the press counts then. A late repeat
  // has none, and the server swallows the next press of the key it takes to be down.
  if (isPress) return TapVerdict::consume;
  isDoubtful_.reset(event.detail);
  ask(code, true, false);
  return ask(code, false, false);
}

TapVerdict LinuxEventTapPort::ask(std::uint8_t code, bool isPress, bool isRepeat) const {
  if (((parameters_.eventsOfInterest >> systemDefinedType) & 1) == 0) return TapVerdict::pass;
  const std::int64_t state = isPress ? keyStateDown : keyStateUp;
  MediaKeyEvent event((std::int64_t{code} << 16) | (state << 8) | (isRepeat ? 1 : 0));
  return parameters_.callback(event, parameters_.context);
}

/// The keyboard is never held for a key whose release went by.
void LinuxEventTapPort::forgetKeysThatAreUp() {
  for (unsigned keycode = 0; keycode < down_.size(); ++keycode) {
    if (down_[keycode] == 0 || grip_->keyboard.wasDown(static_cast<xcb_keycode_t>(keycode))) {
      continue;
    }
    down_[keycode] = 0;
    isDoubtful_.reset(keycode);
    if (--downCount_ == 0) grip_->keyboard.letGo();
  }
}

void LinuxEventTapPort::forgetAllKeys() {
  down_.fill(0);
  downCount_ = 0;
  isDoubtful_.reset();
}

void LinuxEventTapPort::setHold(KeyHold hold) {
  if (hold == hold_) return;
  hold_ = hold;
  handlers_.holdChanged(hold);
}

/// The server closes a connection when it goes itself, and when somebody has it do so.
void LinuxEventTapPort::loseConnection() {
  grip_.reset();
  regrabAt_.reset();
  forgetAllKeys();
  const bool hasDisplay = XConnection::open() != nullptr;
  if (hasDisplay) {
    log.error("the X server has closed the connection; media keys are no longer captured");
  } else {
    log.error("the X server has gone; media keys are no longer captured");
  }
  setHold(KeyHold::lost);
  if (!hasDisplay && handlers_.displayLost) handlers_.displayLost();
}

}  // namespace talmo
