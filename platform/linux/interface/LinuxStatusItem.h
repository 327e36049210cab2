#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <QColor>
#include <QObject>
#include <QSystemTrayIcon>

#include "platform/linux/interface/LinuxOwnApplication.h"
#include "platform/linux/interface/LinuxStatusButton.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/StatusItem.h"

namespace talmo {

/// An icon in the desktop's tray, which may come later. Without the toolkit it is shown nowhere.
class LinuxStatusItem : public QObject, public StatusItem {
 public:
  /// Both live longer.
  LinuxStatusItem(const Vectors& vectors, LinuxOwnApplication& application);
  ~LinuxStatusItem() override;
  LinuxStatusItem(const LinuxStatusItem&) = delete;
  LinuxStatusItem& operator=(const LinuxStatusItem&) = delete;

  std::shared_ptr<StatusButton> button() override { return button_; }
  void setImage(const StatusImage& image) override;
  void setAlpha(double alpha) override;
  void setAction(std::uint64_t mask, std::function<void()> action) override;
  void setMenu(std::optional<Menu> menu) override;
  void performClick() override;

  /// Draws the icon anew when what it is seen against has changed.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void followTray();
  void draw();
  void clicked(QSystemTrayIcon::ActivationReason reason);
  void dropDown();

  const Vectors& vectors_;
  LinuxOwnApplication& application_;
  std::unique_ptr<QSystemTrayIcon> icon_;
  std::shared_ptr<LinuxStatusButton> button_;
  StatusImage image_;
  double alpha_ = 1;
  QColor foreground_;
  std::uint64_t mask_ = 0;
  std::function<void()> action_;
  std::optional<Menu> menu_;
};

}  // namespace talmo
