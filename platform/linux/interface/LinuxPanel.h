#pragma once

#include <functional>

#include "platform/linux/interface/PanelWindow.h"
#include "platform/Panel.h"

namespace talmo {

/// A panel as a window of the toolkit, which it needs.
class LinuxPanel : public Panel {
 public:
  /// Both live longer.
  LinuxPanel(const Vectors& vectors, Appearance& appearance) : window_(vectors, appearance) {}

  WindowIdentifier window() const override;
  void setContent(const View& content) override;
  Rect frame() const override;
  void setFrame(const Rect& frame, bool isAnimated) override;
  void invalidateShadow() override;
  bool isVisible() const override;
  void makeKeyAndOrderFront() override;
  void orderOut() override;
  void setOnSizeChange(std::function<void(Size)> callback) override;
  void setOnCancel(std::function<void()> callback) override;
  void setOnResignKey(std::function<void()> callback) override;

 private:
  PanelWindow window_;
};

}  // namespace talmo
