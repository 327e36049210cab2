#pragma once

namespace talmo {

/// What keeps the media keys from reaching the program.
enum class PermissionWarningKind {
  none,
  /// The person has not allowed it.
  needsGrant,
  /// It is allowed, and only a new start will have the keys.
  needsReopen,
  /// It reads as not allowed, though the person may have allowed it.
  mayNeedReopen,
};

}  // namespace talmo
