#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace talmo {

/// A notification centre: who posts a notice knows nobody who hears it. There is one of this
/// process and the distributed one of the session, where the system posts, too. Any thread.
class Notifications {
 public:
  /// Stands for one observer; never 0, never given twice.
  using Token = std::uint64_t;

  virtual ~Notifications() = default;

  /// From now on every notice of that name calls `block` on the main queue.
  virtual Token addObserver(const std::string& name, std::function<void()> block) = 0;

  /// Ends an observation. Called on the main thread, its block does not run again, even for a
  /// notice that is on its way.
  virtual void removeObserver(Token token) = 0;

  /// Returns at once; nobody listening is no failure.
  virtual void post(const std::string& name) = 0;
};

}  // namespace talmo
