#include "platform/linux/applications/LinuxScriptingTrack.h"

namespace talmo {

bool LinuxScriptingTrack::respondsTo(std::string_view selector) const {
  return selector == "name" || selector == "artist" || selector == "artworkUrl";
}

void LinuxScriptingTrack::send(std::string_view selector) {
  lastError_ = "unknown command " + std::string(selector);
}

std::optional<ScriptingValue> LinuxScriptingTrack::read(std::string_view property) {
  lastError_.reset();
  if (property == "name") return state_.title;
  if (property == "artist") return state_.artist;
  if (property == "artworkUrl") {
    if (state_.artworkUrl.empty()) return std::nullopt;
    return state_.artworkUrl;
  }
  lastError_ = "unknown property " + std::string(property);
  return std::nullopt;
}

}  // namespace talmo
