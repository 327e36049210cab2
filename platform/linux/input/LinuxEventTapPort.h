#pragma once

#include <array>
#include <atomic>
#include <bitset>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>

#include "platform/EventTapParameters.h"
#include "platform/EventTapPort.h"
#include "platform/linux/input/KeyboardRelay.h"
#include "platform/linux/input/KeyHold.h"
#include "platform/linux/input/LinuxRunLoopSource.h"
#include "platform/linux/input/MediaKeyGrabs.h"
#include "platform/linux/x11/XConnection.h"

namespace talmo {

/// The media keys of one display, taken out of its keyboard's events, and the run-loop source that
/// serves them. All but `enable` belong to the thread of that run loop.
class LinuxEventTapPort : public EventTapPort, public LinuxRunLoopSource {
 public:
  /// Called on the tap's thread.
  struct Handlers {
    /// The X server has gone away while the tap was installed; once. May be empty.
    std::function<void()> displayLost;
    /// How the tap stands to the keys from now on: `had`, `lost`, and `none` once it has been
    /// removed.
    std::function<void(KeyHold)> holdChanged;
  };

  /// Grabs the media keys of $DISPLAY; nothing when there is no display or a key cannot be had,
  /// after a log line that says so.
  static std::shared_ptr<LinuxEventTapPort> open(const EventTapParameters& parameters,
                                                 Handlers handlers);

  ~LinuxEventTapPort() override;
  LinuxEventTapPort(const LinuxEventTapPort&) = delete;
  LinuxEventTapPort& operator=(const LinuxEventTapPort&) = delete;

  void enable(bool on) override { isEnabled_ = on; }

  /// Returns when the server has freed the keys.
  void invalidate() override;

  std::span<const int> descriptors() const override;
  std::optional<Uptime> deadline() const override { return regrabAt_; }
  void serve() override;

 private:
  /// The two connections and what lives on them.
  struct Grip {
    Grip(std::unique_ptr<XConnection> first, std::unique_ptr<XConnection> second);

    std::unique_ptr<XConnection> grabber;
    std::unique_ptr<XConnection> other;
    MediaKeyGrabs grabs;
    KeyboardRelay keyboard;
  };

  LinuxEventTapPort(const EventTapParameters& parameters, Handlers handlers)
      : parameters_(parameters), handlers_(std::move(handlers)) {}

  bool serve(const XConnection& connection);
  void decide(const xcb_key_press_event_t& event, bool isPress);
  bool mayBeLateRepeat(const xcb_key_press_event_t& press) const;
  TapVerdict askForKey(const xcb_key_press_event_t& event, std::uint8_t code, bool isPress);
  TapVerdict ask(std::uint8_t code, bool isPress, bool isRepeat) const;
  void forgetKeysThatAreUp();
  void forgetAllKeys();
  void setHold(KeyHold hold);
  void loseConnection();

  const EventTapParameters parameters_;
  const Handlers handlers_;
  KeyHold hold_ = KeyHold::none;
  std::atomic<bool> isEnabled_ = true;
  // Nothing once the tap has been removed or the server has closed a connection.
  std::unique_ptr<Grip> grip_;
  std::array<int, 2> descriptors_{};
  std::optional<Uptime> regrabAt_;
  // The key types of the media keys that are down, by keycode, and how many there are: their events
  // are ours until they are let go, whatever the modifiers do.
  std::array<std::uint8_t, 256> down_{};
  int downCount_ = 0;
  // Those of them whose press may have been a repeat that comes after the release.
  std::bitset<256> isDoubtful_;
  // Between which times the server may have made repeats that come after the release, by keycode,
  // and when the last event was served. In milliseconds as in key events.
  struct Span {
    std::uint32_t from = 0;
    std::uint32_t until = 0;
  };
  std::array<Span, 256> repeats_{};
  std::uint32_t servedAt_ = 0;
};

}  // namespace talmo
