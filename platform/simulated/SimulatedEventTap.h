#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/EventTap.h"
#include "platform/simulated/SimulatedRunLoop.h"
#include "platform/SystemDefinedEvent.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The stream of input events of the simulated machine and the taps in it. What stands below
/// `currentRunLoop` may be called on any thread.
class SimulatedEventTap : public EventTap {
 public:
  /// An event on its way through the taps to the other applications.
  struct Event {
    std::uint32_t type = systemDefined;
    /// Nothing when the toolkit cannot convert it.
    std::optional<SystemDefinedEvent> content = std::nullopt;

    bool operator==(const Event&) const = default;
  };

  static constexpr std::uint32_t systemDefined = 14;
  static constexpr std::uint32_t disabledByTimeout = 0xFFFFFFFE;
  static constexpr std::uint32_t disabledByUserInput = 0xFFFFFFFF;
  /// A tap whose callback takes longer is switched off and told so.
  static constexpr Duration patience = std::chrono::seconds(1);

  explicit SimulatedEventTap(Dispatch& dispatch) : dispatch_(dispatch) {}

  std::shared_ptr<EventTapPort> create(const EventTapParameters& parameters) override;
  std::shared_ptr<RunLoopSource> makeRunLoopSource(
      const std::shared_ptr<EventTapPort>& port) override;
  std::shared_ptr<RunLoop> currentRunLoop() override;

  /// Whether the person lets the program have taps; yes at first.
  void setTrusted(bool trusted);

  /// Puts an event into the stream. The newest tap decides first; what none consumes arrives at the
  /// other applications.
  void post(const Event& event);
  /// Puts a media-key event into the stream: a system-defined one of subtype 8.
  void postMediaKey(std::int32_t code, bool isKeyDown, bool isRepeat = false);
  /// Switches the newest tap off, as the system does, and tells it so by a notice of that type.
  void disableTap(std::uint32_t notice);

  /// What arrived at the other applications, in order.
  std::vector<Event> passed() const;
  /// What a tap consumed, in order.
  std::vector<Event> consumed() const;
  /// The parameters of every tap that was asked for, in order.
  std::vector<EventTapParameters> requests() const;
  /// How many taps are installed and switched on.
  int enabledTaps() const;

 private:
  class Port;
  class Source;

  void offer(const std::shared_ptr<Port>& port, const Event& event);
  std::shared_ptr<Port> tapFor(const Event& event, const Port* below) const TALMO_REQUIRES(mutex_);

  Dispatch& dispatch_;
  mutable Mutex mutex_;
  bool isTrusted_ TALMO_GUARDED_BY(mutex_) = true;
  // The newest first; one that was invalidated or let go of counts for nothing.
  std::vector<std::weak_ptr<Port>> ports_ TALMO_GUARDED_BY(mutex_);
  std::map<std::thread::id, std::weak_ptr<SimulatedRunLoop>> runLoops_ TALMO_GUARDED_BY(mutex_);
  std::vector<Event> passed_ TALMO_GUARDED_BY(mutex_);
  std::vector<Event> consumed_ TALMO_GUARDED_BY(mutex_);
  std::vector<EventTapParameters> requests_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
