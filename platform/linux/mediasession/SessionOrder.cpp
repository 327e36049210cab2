#include "platform/linux/mediasession/SessionOrder.h"

#include <algorithm>

namespace talmo {
namespace {

using Seen = SessionOrder::Seen;

const Seen* find(std::span<const Seen> players, const std::string& name) {
  const auto found = std::ranges::find(players, name, &Seen::name);
  return found == players.end() ? nullptr : &*found;
}

bool isActive(const Seen& player) {
  return player.status == PlaybackStatus::playing || player.status == PlaybackStatus::paused;
}

}  // namespace

SessionOrder SessionOrder::observe(std::span<const Seen> players) const {
  SessionOrder next;
  for (const Seen& player : players) {
    const bool wasPlaying = std::ranges::any_of(
        entries, [&](const Entry& entry) { return entry.name == player.name && entry.wasPlaying; });
    if (player.status == PlaybackStatus::playing && !wasPlaying) {
      next.entries.push_back({player.name, true});
    }
  }
  for (const Entry& entry : entries) {
    const Seen* player = find(players, entry.name);
    if (player == nullptr ||
        std::ranges::find(next.entries, entry.name, &Entry::name) != next.entries.end()) {
      continue;
    }
    const bool isPlaying =
        player->status ? player->status == PlaybackStatus::playing : entry.wasPlaying;
    next.entries.push_back({entry.name, isPlaying});
  }
  return next;
}

std::optional<std::string> SessionOrder::owner(std::span<const Seen> players) const {
  for (const Entry& entry : entries) {
    const Seen* player = find(players, entry.name);
    if (player != nullptr && isActive(*player)) return entry.name;
  }
  const auto paused = std::ranges::find(players, PlaybackStatus::paused, &Seen::status);
  if (paused == players.end()) return std::nullopt;
  return paused->name;
}

}  // namespace talmo
