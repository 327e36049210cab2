#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/Application.h"
#include "platform/Bundle.h"
#include "platform/linux/dispatch/LinuxDispatch.h"

namespace talmo {

class AboutPanel;
class QuitRequests;

/// The program as an application of a Linux desktop; it ends with its main loop. Main thread,
/// unless the interface says otherwise.
class LinuxOwnApplication : public Application {
 public:
  /// Both live longer.
  LinuxOwnApplication(LinuxDispatch& dispatch, const Bundle& bundle);
  ~LinuxOwnApplication() override;

  /// Brings the About panel forward when it is open.
  void activate() override;
  void terminate() override;
  void orderFrontStandardAboutPanel() override;
  std::optional<InterfaceEvent> currentEvent() const override { return currentEvent_; }
  /// There is no such device.
  void performHapticFeedback(int pattern) override;
  std::optional<std::string> environmentVariable(const std::string& name) const override;

  /// Runs `handler` with `event` as the current one.
  void handle(const InterfaceEvent& event, const std::function<void()>& handler);

  /// The person pressed a mouse button outside our windows, and somebody here was told.
  void notePressElsewhere() { pressedElsewhere_ = dispatch_.uptime(); }
  /// Whether that was so short a time ago that what another program passes on to us now, as the
  /// click on an icon that it shows for us, is the same press.
  bool isStillPressElsewhere() const;

  /// Whether `terminate` is what ended the main loop.
  bool isTerminating() const { return isTerminating_; }

 private:
  LinuxDispatch& dispatch_;
  std::optional<InterfaceEvent> currentEvent_;
  std::optional<Uptime> pressedElsewhere_;
  bool isTerminating_ = false;
  // Nothing without the toolkit, as what follows.
  std::unique_ptr<QuitRequests> quitRequests_;
  std::unique_ptr<AboutPanel> about_;
};

}  // namespace talmo
