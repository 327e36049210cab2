#pragma once

#include <string>
#include <vector>

#include "platform/ProcessIdentifier.h"

namespace talmo {

/// What the system lets a trusted program see of other programs' windows.
///
/// Called by the now-playing polls on their queue, never on the main thread: the answer may be
/// waited for. A program that is not trusted sees nothing, and no failure is reported.
class Accessibility {
 public:
  virtual ~Accessibility() = default;

  /// The titles ("AXTitle") of the windows ("AXWindows") of an application's process, in the
  /// system's order; a window without a title is left out. Empty for a process without windows.
  virtual std::vector<std::string> windowTitles(ProcessIdentifier process) = 0;
};

}  // namespace talmo
