#pragma once

#include <nlohmann/json_fwd.hpp>

#include "players/KeyMap.h"
#include "players/KeyStroke.h"

namespace talmo {

// The serialised form of key strokes, found by the JSON library by argument look-up: an object with
// "keyCode" and "flags"; a key map is one with "playPause", "next" and "previous". Reading throws
// the library's exception when a member is missing or of another type.

void to_json(nlohmann::json& json, const KeyStroke& stroke);
void from_json(const nlohmann::json& json, KeyStroke& stroke);
void to_json(nlohmann::json& json, const KeyMap& map);
void from_json(const nlohmann::json& json, KeyMap& map);

}  // namespace talmo
