#pragma once

#include <functional>

namespace talmo {

/// Runs something of ours where the toolkit ends the process by itself, as it does when the X
/// server has gone. One at a time, made and destroyed on the main thread.
class ToolkitExit {
 public:
  /// `leave` is called on the main thread, from within the loop that the toolkit was in, and ends
  /// the process. It is called when `exit` is before this object has gone, and at most once.
  explicit ToolkitExit(std::function<void()> leave);
  ~ToolkitExit();
  ToolkitExit(const ToolkitExit&) = delete;
  ToolkitExit& operator=(const ToolkitExit&) = delete;
};

}  // namespace talmo
