#pragma once

namespace talmo {

/// AppleScript's word for nothing.
struct MissingValue {
  friend bool operator==(const MissingValue&, const MissingValue&) = default;
};

}  // namespace talmo
