#pragma once

namespace talmo {

/// What a part of a view is made of; it says which of its fields count.
enum class ViewKind {
  /// `children`, from top to bottom.
  vertical,
  /// `children`, in reading direction; the first text, or else the first vertical stack, takes the
  /// room that the others leave.
  horizontal,
  /// `text`.
  text,
  /// `text`: the name of a symbol of the system's family.
  symbol,
  /// `text`: the name of one of the program's asset images.
  asset,
  /// `image`.
  picture,
  /// `children` as in `horizontal`, and `action` or `menu`.
  button,
  /// A few bars that dance while `isOn`.
  equalizer,
  /// One of the steps of something; filled while `isOn`.
  segment,
  /// The picture of a switch, on while `isOn`.
  toggle,
};

}  // namespace talmo
