#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/Application.h"
#include "platform/Bundle.h"
#include "platform/linux/dispatch/LinuxDispatch.h"

namespace talmo {

class AboutPanel;

/// Talmo itself on the desktop. Main thread.
class LinuxProgram : public Application {
 public:
  /// Both live longer.
  LinuxProgram(LinuxDispatch& dispatch, const Bundle& bundle);
  ~LinuxProgram() override;

  /// Brings the About panel forward when it is open.
  void activate() override;
  void terminate() override;
  void orderFrontStandardAboutPanel() override;
  std::optional<InterfaceEvent> currentEvent() const override { return currentEvent_; }
  /// There is no such device.
  void performHapticFeedback(int pattern) override;

  /// Runs `handler` with `event` as the current one.
  void handle(const InterfaceEvent& event, const std::function<void()>& handler);

  /// Whether `terminate` has been called.
  bool isTerminating() const { return isTerminating_; }

 private:
  LinuxDispatch& dispatch_;
  std::optional<InterfaceEvent> currentEvent_;
  bool isTerminating_ = false;
  // Nothing without the toolkit.
  std::unique_ptr<AboutPanel> about_;
};

}  // namespace talmo
