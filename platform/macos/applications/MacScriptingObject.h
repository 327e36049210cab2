#pragma once

#include <optional>
#import <ScriptingBridge/ScriptingBridge.h>
#include <string>
#include <string_view>

#include "platform/ScriptingObject.h"

namespace talmo {

/// An object of Scripting Bridge: an application, or a reference to something within it, whose
/// class the framework makes from the application's scripting dictionary. An application that does
/// not run is left alone, as an event would start it.
class MacScriptingObject : public ScriptingObject {
 public:
  /// `object` is the application itself, or was read from it.
  MacScriptingObject(SBApplication* application, SBObject* object);

  /// That of the application, for everything that was read from it.
  void setTimeout(long ticks) override;
  bool respondsTo(std::string_view selector) const override;
  void send(std::string_view selector) override;
  std::optional<ScriptingValue> read(std::string_view property) override;
  std::optional<std::string> lastError() const override { return lastError_; }

 private:
  /// Has the object run the method, which has no arguments. Nil when it cannot, which is then in
  /// `lastError_`.
  NSInvocation* invoke(std::string_view selector);
  std::optional<ScriptingValue> valueOf(NSInvocation* invocation);
  std::optional<ScriptingValue> valueOf(id object);
  /// Has the error of the last event in `lastError_`, if there was one; whether there was none.
  bool wentWell();

  SBApplication* const application_;
  SBObject* const object_;
  std::optional<std::string> lastError_;
};

}  // namespace talmo
