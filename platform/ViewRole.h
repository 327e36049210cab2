#pragma once

namespace talmo {

/// What a part of a view is to the person who looks at it. A renderer gives each role its fonts,
/// colours, spacing and shape.
enum class ViewRole {
  // Stacks.
  /// No look of its own: things that belong together, close to each other.
  group,
  /// The translucent ground of a whole window.
  glass,
  /// Something does not work and can be mended.
  warning,
  /// What the view is about, prominently.
  card,
  /// A headed list; it scrolls when it becomes too long.
  section,
  /// Something that the person may want.
  offer,
  footer,
  /// A small label with a ground of its own.
  chip,

  // Texts; all but `body` stay on one line.
  title,
  /// The name of a thing in a list.
  label,
  /// Sentences; as many lines as they need.
  body,
  /// What stands below a title or label and matters less.
  detail,
  header,

  // Pictures and symbols.
  artwork,
  icon,
  symbol,
  warningSymbol,
  /// Marks what is chosen.
  mark,

  // Buttons.
  row,
  prominentButton,
  plainButton,
  linkButton,
  iconButton,

  equalizer,
};

}  // namespace talmo
