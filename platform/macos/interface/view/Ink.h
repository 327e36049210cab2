#pragma once

namespace talmo {

/// What a text or symbol is written in: one of the system's own colours, which follow its look.
enum class Ink {
  primary,
  secondary,
  tertiary,
  link,
  accent,
  /// On a ground of the accent colour.
  onAccent,
  warning,
  success,
};

}  // namespace talmo
