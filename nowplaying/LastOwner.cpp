#include "nowplaying/LastOwner.h"

#include "platform/Platform.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {
namespace {

struct State {
  Mutex ownerLock;
  std::optional<AdapterOwner> lastOwner TALMO_GUARDED_BY(ownerLock);
  Uptime recordedAt TALMO_GUARDED_BY(ownerLock);
};

State& state() {
  return platform().states().of<State>();
}

}  // namespace

void LastOwner::record(const AdapterNowPlayingSnapshot& snapshot) {
  State& shared = state();
  const Uptime now = platform().dispatch().uptime();
  const MutexLock lock(shared.ownerLock);
  shared.lastOwner = AdapterOwner{.bundleID = snapshot.bundleID,
                                  .parentBundleID = snapshot.parentBundleID,
                                  .title = snapshot.title};
  shared.recordedAt = now;
}

std::optional<AdapterOwner> LastOwner::recent(Duration maxAge) {
  State& shared = state();
  const Uptime now = platform().dispatch().uptime();
  const MutexLock lock(shared.ownerLock);
  // Compared as ages, which cannot overflow as a far point in time does.
  if (!shared.lastOwner || now - shared.recordedAt > maxAge) return std::nullopt;
  return shared.lastOwner;
}

}  // namespace talmo
