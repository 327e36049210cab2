#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/ScriptingValue.h"

namespace talmo {

/// One scriptable application, or an object within it such as a track, addressed by Apple events.
/// Used on one thread at a time.
class ScriptingObject {
 public:
  virtual ~ScriptingObject() = default;

  /// How long a send or a read may wait for the application, in ticks of a sixtieth of a second.
  /// An object that is read from this one afterwards has the same time-out.
  virtual void setTimeout(long ticks) = 0;

  /// Whether the application's dictionary knows that command or property of the object, by its
  /// selector name. Does not ask the application.
  virtual bool respondsTo(std::string_view selector) const = 0;

  /// Sends the command and waits for the application to take it, at most the time-out.
  virtual void send(std::string_view selector) = 0;

  /// What the property holds: of a list of elements the first one. Waits for the application, at
  /// most the time-out. Nothing when it holds nothing, or cannot be read. Whether an object is
  /// still there may show only when it is read from in turn.
  virtual std::optional<ScriptingValue> read(std::string_view property) = 0;

  /// What went wrong with the last send or read, in words; nothing when it went well.
  virtual std::optional<std::string> lastError() const = 0;
};

}  // namespace talmo
