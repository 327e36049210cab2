#include "nowplaying/AudioActivityHold.h"

namespace talmo {

std::set<std::string> AudioActivityHold::update(const std::set<std::string>& observed, Uptime now) {
  for (const std::string& identifier : observed) lastSeen[identifier] = now;
  std::erase_if(lastSeen, [&](const auto& entry) { return entry.second < now - linger; });
  std::set<std::string> kept;
  for (const auto& [identifier, time] : lastSeen) kept.insert(identifier);
  return kept;
}

}  // namespace talmo
