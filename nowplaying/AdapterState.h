#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <variant>

#include "nowplaying/AdapterNested.h"
#include "nowplaying/AdapterText.h"

namespace talmo {

/// Any value of a JSON object; `nullptr` is its null.
using AdapterValue = std::variant<std::nullptr_t, bool, double, AdapterText, AdapterNested>;

/// What the adapter says of the media session, by its keys.
using AdapterState = std::map<std::string, AdapterValue, std::less<>>;

}  // namespace talmo
