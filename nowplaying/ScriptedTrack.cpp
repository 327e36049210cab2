#include "nowplaying/ScriptedTrack.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <variant>

#include "platform/Platform.h"

namespace talmo {
namespace {

constexpr long timeoutTicks = 120;             // two seconds
constexpr std::uint32_t playing = 0x6B505350;  // 'kPSP', as in the players' scripting dictionaries

/// What the property holds, if the object knows it and it holds something of that type.
template <class Value>
std::optional<Value> read(ScriptingObject& object, std::string_view property) {
  if (!object.respondsTo(property)) return std::nullopt;
  const std::optional<ScriptingValue> value = object.read(property);
  const Value* const held = value ? std::get_if<Value>(&*value) : nullptr;
  return held != nullptr ? std::optional(*held) : std::nullopt;
}

std::shared_ptr<ScriptingObject> readObject(ScriptingObject& object, std::string_view property) {
  return talmo::read<std::shared_ptr<ScriptingObject>>(object, property).value_or(nullptr);
}

}  // namespace

std::optional<ScriptedTrack> ScriptedTrack::read(const std::string& bundleID) {
  const std::unique_ptr<ScriptingObject> player = platform().appleEvents().application(bundleID);
  if (!player) return std::nullopt;
  player->setTimeout(timeoutTicks);
  const std::shared_ptr<ScriptingObject> track = readObject(*player, "currentTrack");
  if (!track) return std::nullopt;
  std::optional<std::string> name = talmo::read<std::string>(*track, "name");
  if (!name || name->empty()) return std::nullopt;
  ScriptedTrack result{.title = *std::move(name)};
  result.artist = talmo::read<std::string>(*track, "artist").value_or("");
  result.isPlaying = talmo::read<std::uint32_t>(*player, "playerState") == playing;
  result.artworkUrl = talmo::read<std::string>(*track, "artworkUrl");
  if (const std::shared_ptr<ScriptingObject> artwork = readObject(*track, "artworks")) {
    result.artwork = talmo::read<Image>(*artwork, "data");
  }
  return result;
}

}  // namespace talmo
