#pragma once

#include <string>
#include <vector>

#include "platform/ProcessIdentifier.h"

namespace talmo {

/// Whether the system trusts this program to take other programs' keys and to look at their
/// windows, and what a trusted program sees of the windows. No failure is reported.
class Accessibility {
 public:
  virtual ~Accessibility() = default;

  /// Whether the program is trusted at this moment. It may lag behind what the person did. Main
  /// thread, often.
  virtual bool isProcessTrusted() = 0;

  /// The same; with `prompt` a system whose person decides asks them when the answer is no. Does
  /// not wait for them. Main thread.
  virtual bool isProcessTrustedWithPrompt(bool prompt) = 0;

  /// The titles ("AXTitle") of the windows ("AXWindows") of an application's process, in the
  /// system's order; a window without a title is left out. Empty for a process without windows, and
  /// for whoever is not trusted. Called by the now-playing polls on their queue, never on the main
  /// thread: the answer may be waited for.
  virtual std::vector<std::string> windowTitles(ProcessIdentifier process) = 0;
};

}  // namespace talmo
