#pragma once

#include <string>
#include <utility>

#include "platform/linux/osascript/ScriptRange.h"

namespace talmo {

/// Why a script was not understood or stopped; what its parser and its run throw to each other.
struct ScriptError {
  enum class Kind { syntax, execution };

  // "Error Numbers and Error Messages" in the AppleScript Language Guide, and MacErrors.h.
  static constexpr int noPrivilege = -10004;
  static constexpr int writeDenied = -10006;
  static constexpr int undefinedVariable = -2753;
  static constexpr int unexpectedToken = -2741;
  static constexpr int badToken = -2740;
  static constexpr int numericOverflow = -2702;
  static constexpr int generalError = -2700;
  static constexpr int noSuchObject = -1728;
  static constexpr int illegalIndex = -1719;
  static constexpr int timeout = -1712;
  static constexpr int cannotCoerce = -1700;

  static ScriptError syntax(int number, std::string message, const ScriptRange& range) {
    return {Kind::syntax, number, std::move(message), range};
  }
  static ScriptError execution(int number, std::string message, const ScriptRange& range) {
    return {Kind::execution, number, std::move(message), range};
  }

  Kind kind = Kind::execution;
  int number = generalError;
  std::string message;
  ScriptRange range;
  /// Whether a `try` of the script may go on after it.
  bool canBeCaught = true;
};

}  // namespace talmo
