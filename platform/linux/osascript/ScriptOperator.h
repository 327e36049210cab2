#pragma once

namespace talmo {

/// What is done with the operands of an expression.
enum class ScriptOperator {
  // One operand.
  negation,
  characterWithID,
  url,
  title,
  tabs,
  // Two operands.
  equal,
  notEqual,
  less,
  lessOrEqual,
  greater,
  greaterOrEqual,
  contains,
  /// The source, and the tab that it runs in.
  runJavaScript,
  // Two operands or more, from left to right.
  conjunction,
  disjunction,
  sum,
  concatenation,
};

}  // namespace talmo
