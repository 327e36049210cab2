#pragma once

#include "platform/KeyEvents.h"

namespace talmo {

/// Key events by Quartz. Posting needs the Accessibility permission; without it the event goes
/// nowhere.
class MacKeyEvents : public KeyEvents {
 public:
  void post(const KeyboardEvent& event, ProcessIdentifier process) override;
};

}  // namespace talmo
