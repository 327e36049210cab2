#pragma once

#include <cstdint>

namespace talmo {

/// What a system-defined event carries once the toolkit has converted it (`NSEvent`).
struct SystemDefinedEvent {
  /// 8 (`NX_SUBTYPE_AUX_CONTROL_BUTTONS`, IOKit's ev_keymap.h) for the auxiliary keys.
  std::int16_t subtype = 0;
  /// For subtype 8: key code in bits 16 to 31, key state in bits 8 to 15, repeat in bit 0.
  std::int64_t data1 = 0;

  bool operator==(const SystemDefinedEvent&) const = default;
};

}  // namespace talmo
