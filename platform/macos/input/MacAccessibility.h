#pragma once

#include <string>
#include <vector>

#include "platform/Accessibility.h"

namespace talmo {

/// The system's Accessibility permission, and other applications' windows as it shows them.
class MacAccessibility : public Accessibility {
 public:
  bool isProcessTrusted() override;
  bool isProcessTrustedWithPrompt(bool prompt) override;

  /// Waits two seconds at most for the list of windows, and for each of the titles.
  std::vector<std::string> windowTitles(ProcessIdentifier process) override;
};

}  // namespace talmo
