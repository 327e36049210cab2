#pragma once

#include <functional>

#import <AppKit/AppKit.h>

#include "platform/Window.h"
#include "platform/WindowParameters.h"

@class TLMHostingView;
@class TLMWindow;
@class TLMWindowDelegate;

namespace talmo {

/// A window of AppKit. Main thread.
class MacWindow : public Window {
 public:
  explicit MacWindow(const WindowParameters& parameters);
  ~MacWindow() override;
  MacWindow(const MacWindow&) = delete;
  MacWindow& operator=(const MacWindow&) = delete;

  void setContent(const View& content) override;
  void center() override;
  bool isVisible() const override;
  void makeKeyAndOrderFront() override;
  void close() override;
  void setOnWillClose(std::function<void()> callback) override;

 private:
  TLMWindow* const window_;
  TLMHostingView* const content_;
  // The window's, which does not keep it.
  TLMWindowDelegate* const delegate_;
};

}  // namespace talmo
