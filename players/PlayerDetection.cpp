#include "players/PlayerDetection.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "platform/Platform.h"
#include "players/TargetAppRegistry.h"

namespace talmo {
namespace {

struct State {
  std::shared_ptr<Queue> queue = platform().dispatch().makeSerialQueue(
      "nl.brelm.talmo.player-detection", QualityOfService::utility);
};

bool comesBefore(const PlayerDetection::Record& a, const PlayerDetection::Record& b) {
  // An absent date is less than every other.
  if (a.date != b.date) return a.date > b.date;
  return a.index < b.index;
}

}  // namespace

void PlayerDetection::detect(std::function<void(std::vector<TargetApp>)> completion) {
  platform().states().of<State>().queue->async([completion = std::move(completion)] {
    platform().dispatch().mainQueue().async(
        [completion, players = detectSync()] { completion(players); });
  });
}

std::vector<TargetApp> PlayerDetection::detectSync() {
  std::vector<Record> records;
  const std::vector<TargetApp>& all = TargetAppRegistry::all();
  for (std::size_t index = 0; index < all.size(); ++index) {
    const TargetApp& app = all[index];
    if (!app.isInstalled()) continue;
    std::optional<Date> date;
    // It may be uninstalled at this moment.
    if (const std::optional<std::string> url = app.applicationURL()) {
      date = platform().workspace().lastUsedDate(*url);
    }
    records.push_back({app, index, date});
  }
  return ranked(std::move(records));
}

std::vector<TargetApp> PlayerDetection::ranked(std::vector<Record> records) {
  // Each goes behind its equals. The standard library's stable sort of Debian 12 calls what clang
  // 19 warns of, and these are a few dozen at most.
  std::vector<Record> sorted;
  for (Record& record : records) {
    const auto place = std::ranges::upper_bound(sorted, record, comesBefore);
    sorted.insert(place, std::move(record));
  }
  std::vector<TargetApp> players;
  players.reserve(sorted.size());
  for (Record& record : sorted) players.push_back(std::move(record.app));
  return players;
}

}  // namespace talmo
