#pragma once

namespace talmo {

/// What a part of a view is to the person who looks at it. A renderer gives each role its fonts,
/// colours, spacing and shape.
enum class ViewRole {
  // Stacks.
  /// No look of its own: things that belong together, close to each other.
  group,
  /// The translucent ground of a whole panel.
  glass,
  /// The translucent ground of a window of a fixed size.
  material,
  /// What a window shows at a time; takes the height that the others leave.
  step,
  /// The buttons at the lower edge of a step; the last one stands apart from the others.
  tray,
  /// How many steps there are, and which is shown.
  segments,
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
  /// What a step is about, in a few words; also a line of such a text and a symbol.
  headline,
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
  /// Says that something has come true.
  successSymbol,
  /// Marks what is chosen.
  mark,

  // Buttons.
  row,
  /// What a window wants pressed; the Return key presses it.
  primaryButton,
  /// The way around it.
  ghostButton,
  prominentButton,
  plainButton,
  linkButton,
  iconButton,

  equalizer,
  segment,
  toggle,
};

}  // namespace talmo
