#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/linux/osascript/ScriptExpression.h"
#include "platform/linux/osascript/ScriptRange.h"

namespace talmo {

/// A line of a script, or a block of lines from its first word to its `end`.
struct ScriptStatement {
  using Block = std::vector<ScriptStatement>;

  struct Set {
    /// In lower case.
    std::string variable;
    ScriptExpression value;
  };
  /// `set current tab of window to tab`
  struct SelectTab {
    ScriptExpression window;
    ScriptExpression tab;
  };
  /// `set active tab index of window to index`, which counts from 1.
  struct SelectTabWithIndex {
    ScriptExpression window;
    ScriptExpression index;
  };
  /// `set index of window to 1`
  struct BringToFront {
    ScriptExpression window;
  };
  struct Activate {};
  /// A command, for its effect.
  struct Command {
    ScriptExpression expression;
  };
  struct Return {
    std::optional<ScriptExpression> value;
  };
  struct ExitRepeat {};
  struct Tell {
    std::string application;
    Block body;
  };
  struct RepeatWith {
    /// In lower case.
    std::string variable;
    ScriptExpression list;
    Block body;
  };
  struct Try {
    Block body;
  };
  struct ConsideringCase {
    Block body;
  };
  struct Branch {
    /// None for the `else` at the end.
    std::optional<ScriptExpression> condition;
    Block body;
  };
  struct If {
    std::vector<Branch> branches;
  };

  /// Of a block, its first line up to what it is about.
  ScriptRange range;
  std::variant<Set, SelectTab, SelectTabWithIndex, BringToFront, Activate, Command, Return,
               ExitRepeat, Tell, RepeatWith, Try, ConsideringCase, If>
      what;
};

}  // namespace talmo
