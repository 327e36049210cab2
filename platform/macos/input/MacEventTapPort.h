#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <memory>

#include "platform/EventTapParameters.h"
#include "platform/EventTapPort.h"
#include "platform/macos/CFOwned.h"

namespace talmo {

/// A Quartz event tap, by its Mach port. It is what the tap's callback is called with, so whatever
/// serves the port keeps this object.
class MacEventTapPort : public EventTapPort {
 public:
  /// Null when the system refuses, which it does without the Accessibility permission.
  static std::shared_ptr<MacEventTapPort> open(const EventTapParameters& parameters);

  ~MacEventTapPort() override;
  MacEventTapPort(const MacEventTapPort&) = delete;
  MacEventTapPort& operator=(const MacEventTapPort&) = delete;

  void enable(bool on) override;
  void invalidate() override;

  CFMachPortRef port() const { return port_.get(); }

 private:
  explicit MacEventTapPort(const EventTapParameters& parameters);

  /// The function that Quartz calls. The event is the system's: what passes is given back as it
  /// came, without a reference of its own, and null means that nobody else sees it.
  static CGEventRef decide(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* self);

  const EventTapCallback callback_;
  void* const context_;
  const CFOwned<CFMachPortRef> port_;
};

}  // namespace talmo
