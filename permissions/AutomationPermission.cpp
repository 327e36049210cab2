#include "permissions/AutomationPermission.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

#include "platform/Platform.h"
#include "support/Logger.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

using Completion = AutomationPermission::Completion;

constexpr Logger log("automation");
constexpr const char* settingsURLString =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Automation";

// Results of the consent query (MacErrors.h, AppleEvents.h).
constexpr std::int32_t noError = 0;
constexpr std::int32_t eventNotPermitted = -1743;
constexpr std::int32_t eventWouldRequireUserConsent = -1744;
constexpr std::int32_t processNotFound = -600;

struct State {
  Mutex lock;
  std::map<std::string, AutomationStatus> cache TALMO_GUARDED_BY(lock);
  /// Who waits for the query under way for an identifier; an entry, even an empty one, means that
  /// there is one.
  std::map<std::string, std::vector<Completion>> pending TALMO_GUARDED_BY(lock);
  std::shared_ptr<Queue> queryQueue = platform().dispatch().makeSerialQueue(
      "nl.brelm.talmo.automation-query", QualityOfService::userInitiated);
};

State& state() {
  return platform().states().of<State>();
}

/// The one place that asks the system. It may block, so never on the main thread.
AutomationStatus query(const std::string& bundle, bool askUserIfNeeded) {
  const std::optional<std::int32_t> code =
      platform().appleEvents().determinePermission(bundle, askUserIfNeeded);
  if (!code) return AutomationStatus::notDetermined;
  switch (*code) {
    case noError:
      return AutomationStatus::granted;
    case eventNotPermitted:
      return AutomationStatus::denied;
    case eventWouldRequireUserConsent:
      return AutomationStatus::notDetermined;
    case processNotFound:
      return AutomationStatus::notRunning;
    default:
      log.info("unexpected AE permission status %d for %{public}s", *code, bundle);
      return AutomationStatus::notDetermined;
  }
}

/// One query of the query queue, for everyone who waits for the identifier.
void answerPending(const std::string& bundle) {
  State& shared = state();
  // Another path, such as a request, may have filled the cache since this was queued.
  std::optional<AutomationStatus> status = AutomationPermission::cachedStatus(bundle);
  if (!status) status = query(bundle, false);

  std::vector<Completion> waiting;
  {
    const MutexLock lock(shared.lock);
    shared.cache[bundle] = *status;
    auto entry = shared.pending.extract(bundle);
    if (!entry.empty()) waiting = std::move(entry.mapped());
  }
  if (waiting.empty()) return;
  platform().dispatch().mainQueue().async([waiting = std::move(waiting), status = *status] {
    for (const Completion& completion : waiting) completion(status);
  });
}

/// The answers of a refresh of several identifiers, until the last one is in.
struct Group {
  Mutex lock;
  std::map<std::string, AutomationStatus> results TALMO_GUARDED_BY(lock);
  std::size_t outstanding TALMO_GUARDED_BY(lock) = 0;
};

}  // namespace

std::optional<AutomationStatus> AutomationPermission::cachedStatus(const std::string& bundle) {
  State& shared = state();
  const MutexLock lock(shared.lock);
  const auto found = shared.cache.find(bundle);
  if (found == shared.cache.end()) return std::nullopt;
  return found->second;
}

void AutomationPermission::refreshStatus(const std::string& bundle, Completion completion) {
  State& shared = state();
  std::optional<AutomationStatus> cached;
  {
    const MutexLock lock(shared.lock);
    if (const auto found = shared.cache.find(bundle); found != shared.cache.end()) {
      cached = found->second;
    } else {
      const auto [entry, isFirst] = shared.pending.try_emplace(bundle);
      if (completion) entry->second.push_back(std::move(completion));
      if (!isFirst) return;
    }
  }
  // Where nothing was cached, the completion has moved to those that wait.
  if (!cached) {
    shared.queryQueue->async([bundle] { answerPending(bundle); });
  } else if (completion) {  // NOLINT(bugprone-use-after-move)
    platform().dispatch().mainQueue().async(
        [completion = std::move(completion), status = *cached] { completion(status); });
  }
}

void AutomationPermission::refreshStatuses(const std::vector<std::string>& bundles,
                                           MapCompletion completion) {
  if (bundles.empty()) {
    platform().dispatch().mainQueue().async(
        [completion = std::move(completion)] { completion({}); });
    return;
  }
  auto group = std::make_shared<Group>();
  {
    const MutexLock lock(group->lock);
    group->outstanding = bundles.size();
  }
  for (const std::string& bundle : bundles) {
    refreshStatus(bundle, [group, bundle, completion](AutomationStatus status) {
      std::map<std::string, AutomationStatus> results;
      {
        const MutexLock lock(group->lock);
        group->results[bundle] = status;
        if (--group->outstanding > 0) return;
        results = std::move(group->results);
      }
      completion(std::move(results));
    });
  }
}

std::optional<AutomationStatus> AutomationPermission::blockingStatus(const std::string& bundle,
                                                                     Duration timeout) {
  if (platform().dispatch().isMainThread()) {
    std::fputs("talmo: AutomationPermission::blockingStatus was called on the main thread\n",
               stderr);
    std::abort();
  }
  if (const std::optional<AutomationStatus> cached = cachedStatus(bundle)) return cached;
  const std::shared_ptr<Semaphore> answered = platform().dispatch().makeSemaphore(0);
  refreshStatus(bundle, [answered](AutomationStatus) { answered->signal(); });
  answered->wait(timeout);
  return cachedStatus(bundle);
}

void AutomationPermission::request(const std::string& bundle, Completion completion) {
  Queue& background = platform().dispatch().globalQueue(QualityOfService::userInitiated);
  background.async([bundle, completion = std::move(completion)]() mutable {
    const AutomationStatus status = query(bundle, true);
    {
      State& shared = state();
      const MutexLock lock(shared.lock);
      shared.cache[bundle] = status;
    }
    log.info("automation request for %{public}s → %{public}s", bundle, name(status));
    platform().dispatch().mainQueue().async(
        [completion = std::move(completion), status] { completion(status); });
  });
}

void AutomationPermission::invalidate(const std::string& bundle) {
  State& shared = state();
  const MutexLock lock(shared.lock);
  shared.cache.erase(bundle);
}

void AutomationPermission::invalidateAll() {
  State& shared = state();
  const MutexLock lock(shared.lock);
  shared.cache.clear();
}

void AutomationPermission::openSettings() {
  platform().workspace().openURL(settingsURLString);
}

}  // namespace talmo
