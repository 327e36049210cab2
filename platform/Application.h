#pragma once

#include <optional>
#include <string>

namespace talmo {

/// This program as an application of the system.
class Application {
 public:
  virtual ~Application() = default;

  /// Has the program end in order, as when the person quits it. Returns; the end follows. Main
  /// thread.
  virtual void terminate() = 0;

  /// The value of a variable of the process's environment; nothing when there is none. Any thread.
  virtual std::optional<std::string> environmentVariable(const std::string& name) const = 0;
};

}  // namespace talmo
