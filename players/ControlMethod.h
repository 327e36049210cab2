#pragma once

#include <variant>

#include "players/KeyMap.h"
#include "web/WebPlayerTarget.h"

namespace talmo {

/// The player is scriptable and is driven by Apple events.
struct ScriptingBridge {
  bool operator==(const ScriptingBridge&) const = default;
};

/// How a target is controlled: key strokes posted to its process, a web page in a browser tab, or
/// Apple events.
using ControlMethod = std::variant<KeyMap, WebPlayerTarget, ScriptingBridge>;

}  // namespace talmo
