#pragma once

#include <functional>

#import <AppKit/AppKit.h>

#include "platform/Panel.h"

@class TalmoPanel;
@class TLMHostingView;
@class TLMPanelDelegate;

namespace talmo {

/// A panel of AppKit. Main thread.
class MacPanel : public Panel {
 public:
  MacPanel();
  ~MacPanel() override;
  MacPanel(const MacPanel&) = delete;
  MacPanel& operator=(const MacPanel&) = delete;

  WindowIdentifier window() const override;
  void setContent(const View& content) override;
  Rect frame() const override;
  /// Returns when the panel is there; the animation, too, is over then.
  void setFrame(const Rect& frame, bool isAnimated) override;
  void invalidateShadow() override;
  bool isVisible() const override;
  void makeKeyAndOrderFront() override;
  void orderOut() override;
  void setOnSizeChange(std::function<void(Size)> callback) override;
  void setOnCancel(std::function<void()> callback) override;
  void setOnResignKey(std::function<void()> callback) override;

 private:
  TalmoPanel* const panel_;
  TLMHostingView* const content_;
  // The panel's, which does not keep it.
  TLMPanelDelegate* const delegate_;
};

}  // namespace talmo
