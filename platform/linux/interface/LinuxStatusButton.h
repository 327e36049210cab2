#pragma once

#include <optional>
#include <QPoint>
#include <QSystemTrayIcon>

#include "platform/StatusButton.h"

namespace talmo {

/// The tray icon as what a panel hangs from. Main thread.
class LinuxStatusButton : public StatusButton {
 public:
  /// Without an icon there is no place.
  explicit LinuxStatusButton(const QSystemTrayIcon* icon) : icon_(icon) {}

  WindowIdentifier window() const override;
  std::optional<Rect> windowFrame() const override;
  Rect visibleFrame() const override;

  /// The icon was clicked at that point of the screen. Some desktops do not say otherwise where
  /// they show it.
  void wasClicked(const QPoint& place) { clicked_ = place; }

  /// The icon has gone.
  void detach() { icon_ = nullptr; }

  /// Where the icon is, or was when it was last clicked.
  std::optional<QRect> area() const;

 private:
  const QSystemTrayIcon* icon_;
  std::optional<QPoint> clicked_;
};

}  // namespace talmo
