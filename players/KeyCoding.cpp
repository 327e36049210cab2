#include "players/KeyCoding.h"

#include <nlohmann/json.hpp>

namespace talmo {

void to_json(nlohmann::json& json, const KeyStroke& stroke) {
  json = {{"keyCode", stroke.keyCode}, {"flags", stroke.flags}};
}

void from_json(const nlohmann::json& json, KeyStroke& stroke) {
  json.at("keyCode").get_to(stroke.keyCode);
  json.at("flags").get_to(stroke.flags);
}

void to_json(nlohmann::json& json, const KeyMap& map) {
  json = {{"playPause", map.playPause}, {"next", map.next}, {"previous", map.previous}};
}

void from_json(const nlohmann::json& json, KeyMap& map) {
  json.at("playPause").get_to(map.playPause);
  json.at("next").get_to(map.next);
  json.at("previous").get_to(map.previous);
}

}  // namespace talmo
