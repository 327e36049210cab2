#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QSocketNotifier>

#include "platform/InterfaceEvent.h"
#include "platform/linux/x11/XConnection.h"

namespace talmo {

/// The presses of the left and right mouse button outside our own windows, wherever the pointer is
/// and whoever holds it. Main thread, while the toolkit is there.
class GlobalPresses {
 public:
  /// `handler` may call `stop`.
  explicit GlobalPresses(std::function<void(InterfaceEvent::Type)> handler);

  /// From now on every press calls the handler. A server that cannot tell of them is logged.
  void start();

  /// No press does any more, nor wakes the program.
  void stop();

 private:
  void drain();

  const std::function<void(InterfaceEvent::Type)> handler_;
  const std::unique_ptr<XConnection> connection_;
  std::optional<QSocketNotifier> notifier_;
  // The extension's number in events; 0 where there is none.
  std::uint8_t extension_ = 0;
  bool isStarted_ = false;
};

}  // namespace talmo
