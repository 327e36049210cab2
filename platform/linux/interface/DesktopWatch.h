#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <QObject>
#include <QSocketNotifier>

#include "platform/linux/x11/XConnection.h"
#include "platform/Notifications.h"

class QScreen;

namespace talmo {

/// Posts what changes on the desktop: another application in front and another desktop (to the
/// workspace's notification centre), and screens that come, go or change (to the program's). Main
/// thread; without the toolkit it posts nothing.
class DesktopWatch : public QObject {
 public:
  /// Both live longer.
  DesktopWatch(Notifications& workspace, Notifications& program);

 private:
  void watchScreen(QScreen* screen);
  void drain();
  /// The process of the window in front, 0 where it does not say; nothing when it is ours or there
  /// is none.
  std::optional<std::uint32_t> front() const;

  Notifications& workspace_;
  Notifications& program_;
  std::unique_ptr<XConnection> connection_;
  std::optional<QSocketNotifier> notifier_;
  // The last that was in front and is not ours.
  std::optional<std::uint32_t> front_;
};

}  // namespace talmo
