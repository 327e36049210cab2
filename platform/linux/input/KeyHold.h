#pragma once

namespace talmo {

/// How this program's tap stands to the media keys.
enum class KeyHold {
  /// There is no tap.
  none,
  /// There was to be one, and somebody else had a key.
  refused,
  /// It has them all.
  had,
  /// It has lost them, or one of them. It does not get back by itself what it lost with its
  /// connection, so it is to be removed.
  lost,
};

}  // namespace talmo
