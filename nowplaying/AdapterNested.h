#pragma once

#include "nowplaying/AdapterText.h"

namespace talmo {

/// An object or a list among the adapter's values: kept as JSON, as nobody reads it.
struct AdapterNested {
  AdapterText json;

  bool operator==(const AdapterNested&) const = default;
};

}  // namespace talmo
