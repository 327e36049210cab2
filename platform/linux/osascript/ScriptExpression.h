#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/linux/osascript/MissingValue.h"
#include "platform/linux/osascript/ScriptOperator.h"
#include "platform/linux/osascript/ScriptRange.h"

namespace talmo {

/// A part of a script that has a value.
struct ScriptExpression {
  using Literal = std::variant<MissingValue, bool, std::int64_t, std::string>;
  struct Variable {
    /// In lower case: names differ in more than that.
    std::string name;
  };
  /// The windows of the application that is told, frontmost first.
  struct Windows {};
  struct Operation {
    ScriptOperator symbol;
    std::vector<ScriptExpression> operands;
  };

  ScriptRange range;
  std::variant<Literal, Variable, Windows, Operation> what;
};

}  // namespace talmo
