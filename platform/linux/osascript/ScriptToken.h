#pragma once

#include <cstdint>
#include <string>

#include "platform/linux/osascript/ScriptRange.h"

namespace talmo {

/// The smallest part of a script that means something.
struct ScriptToken {
  enum class Kind { word, text, integer, symbol, endOfLine, endOfScript };

  Kind kind = Kind::endOfScript;
  /// A word in lower case, the value of a literal text, a symbol in its ASCII form.
  std::string text;
  /// The value of an integer.
  std::int64_t number = 0;
  ScriptRange range;

  bool isWord(const char* word) const { return kind == Kind::word && text == word; }
  bool isSymbol(const char* symbol) const { return kind == Kind::symbol && text == symbol; }
};

}  // namespace talmo
