#pragma once

#include <functional>
#include <memory>

#include "platform/Menu.h"
#include "platform/StatusItem.h"

namespace talmo {

/// The program's icon in the menu bar: its look says whether something needs attention and whether
/// routing is off, a left click is its owner's, a right click drops a menu down. Main thread only.
class StatusItemController : public std::enable_shared_from_this<StatusItemController> {
 public:
  static std::shared_ptr<StatusItemController> make();

  /// `callback` is called for each left click; it may be empty.
  void setOnLeftClick(std::function<void()> callback) { onLeftClick_ = std::move(callback); }

  void setPermissionWarning(bool hasPermissionWarning);
  void setRoutingOff(bool isRoutingOff);

  /// The button of the icon; lives as long as this object.
  std::shared_ptr<StatusButton> button() { return statusItem_->button(); }

  /// Shows the About panel in front of the other applications.
  static void showAbout();

 private:
  StatusItemController();

  void updateIcon();
  void handleClick();
  Menu makeMenu();

  std::function<void()> onLeftClick_;
  const std::unique_ptr<StatusItem> statusItem_;
  bool hasPermissionWarning_ = false;
  bool isRoutingOff_ = false;
};

}  // namespace talmo
