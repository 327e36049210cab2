#pragma once

#include <cstddef>

namespace talmo {

/// A stretch of a script.
struct ScriptRange {
  /// In characters from the script's start.
  std::size_t begin = 0;
  std::size_t end = 0;
  /// Where it begins, both from 1, the column in characters.
  std::size_t line = 1;
  std::size_t column = 1;

  friend bool operator==(const ScriptRange&, const ScriptRange&) = default;
};

}  // namespace talmo
