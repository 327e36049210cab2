#pragma once

#include "nowplaying/AdapterState.h"

namespace talmo {

/// One line of the adapter's stream.
struct AdapterEnvelope {
  AdapterState payload;
  /// Whether the payload holds only what has changed.
  bool isDiff = false;

  bool operator==(const AdapterEnvelope&) const = default;
};

}  // namespace talmo
