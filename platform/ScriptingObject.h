#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace talmo {

/// One scriptable application, addressed by Apple events. Used on one thread at a time.
class ScriptingObject {
 public:
  virtual ~ScriptingObject() = default;

  /// How long a send may wait for the application, in ticks of a sixtieth of a second.
  virtual void setTimeout(long ticks) = 0;

  /// Whether the application's dictionary knows the command of that selector name.
  virtual bool respondsTo(std::string_view selector) const = 0;

  /// Sends the command and waits for the application to take it, at most the time-out.
  virtual void send(std::string_view selector) = 0;

  /// What went wrong with the last send, in words; nothing when it went well.
  virtual std::optional<std::string> lastError() const = 0;
};

}  // namespace talmo
