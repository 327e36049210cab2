#pragma once

#include <functional>

#include "platform/linux/interface/TitledWindow.h"
#include "platform/Window.h"

namespace talmo {

/// A window as one of the toolkit, which it needs.
class LinuxOwnWindow : public Window {
 public:
  /// Vectors and appearance live longer.
  LinuxOwnWindow(const WindowParameters& parameters, const Vectors& vectors,
                 Appearance& appearance);
  ~LinuxOwnWindow() override;
  LinuxOwnWindow(const LinuxOwnWindow&) = delete;
  LinuxOwnWindow& operator=(const LinuxOwnWindow&) = delete;

  void setContent(const View& content) override { window_.setContent(content); }
  void center() override { window_.center(); }
  bool isVisible() const override { return window_.isVisible(); }
  void makeKeyAndOrderFront() override { window_.open(); }
  void close() override;
  void setOnWillClose(std::function<void()> callback) override;

 private:
  // It may be in the middle of an event when it is let go of, so the toolkit destroys it.
  TitledWindow& window_;
};

}  // namespace talmo
