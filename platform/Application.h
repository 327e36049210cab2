#pragma once

namespace talmo {

/// This program as an application of the system.
class Application {
 public:
  virtual ~Application() = default;

  /// Brings the program's windows to the front. Main thread.
  virtual void activate() = 0;
};

}  // namespace talmo
