#include "web/WebTabDetection.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "nowplaying/AdapterNowPlaying.h"
#include "platform/Platform.h"
#include "support/Logger.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"
#include "web/WebTabScanner.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

constexpr Logger log("web-tab");
constexpr Duration period = 4s;
constexpr Duration tolerance = 1s;

struct State {
  Mutex cacheLock;
  WebTabDetection::Matches cachedMatches TALMO_GUARDED_BY(cacheLock);
  std::optional<Uptime> cachedAt TALMO_GUARDED_BY(cacheLock);
  std::vector<WebTabMatch> allMatches TALMO_GUARDED_BY(cacheLock);
};

State& state() {
  return platform().states().of<State>();
}

std::string summary(const std::vector<WebTabMatch>& matches) {
  std::string text;
  for (const WebTabMatch& match : matches) {
    if (!text.empty()) text += " | ";
    text += match.targetID + "@" + match.browserName + " [" + match.title + "]";
  }
  return text;
}

WebTabDetection::Matches scanAndCache() {
  std::vector<WebTabMatch> all = WebTabScanner::scan();
  const std::optional<AdapterOwner> owner = AdapterNowPlaying::recentOwner();
  WebTabDetection::Matches best =
      owner
          ? WebTabScanner::bestPerTarget(all, owner->bundleID, owner->parentBundleID, owner->title)
          : WebTabScanner::bestPerTarget(all, std::nullopt, std::nullopt, std::nullopt);
  const std::string found = summary(all);
  const std::size_t count = all.size();
  State& shared = state();
  const Uptime now = platform().dispatch().uptime();
  {
    const MutexLock lock(shared.cacheLock);
    shared.cachedMatches = best;
    shared.cachedAt = now;
    shared.allMatches = std::move(all);
  }
  log.notice("scan found %ld tab(s): %{public}s", count, found);
  return best;
}

}  // namespace

struct WebTabDetection::ScanInFlight {
  Mutex lock;
  bool isScanning TALMO_GUARDED_BY(lock) = false;

  /// False when there is one already.
  bool begin() {
    const MutexLock held(lock);
    return !std::exchange(isScanning, true);
  }
  void end() {
    const MutexLock held(lock);
    isScanning = false;
  }
};

std::shared_ptr<WebTabDetection> WebTabDetection::make() {
  return std::shared_ptr<WebTabDetection>(new WebTabDetection);
}

WebTabDetection::WebTabDetection()
    : queue_(platform().dispatch().makeSerialQueue("nl.brelm.talmo.web-tab",
                                                   QualityOfService::utility)),
      scanInFlight_(std::make_shared<ScanInFlight>()) {}

WebTabDetection::~WebTabDetection() {
  stop();
}

void WebTabDetection::start() {
  stop();
  scanSoon();
  timer_ = platform().dispatch().scheduledTimer(period, tolerance, [weak = weak_from_this()] {
    if (const std::shared_ptr<WebTabDetection> self = weak.lock()) self->scanSoon();
  });
}

void WebTabDetection::stop() {
  if (timer_) timer_->invalidate();
  timer_ = nullptr;
}

void WebTabDetection::scanSoon() {
  if (!scanInFlight_->begin()) return;
  queue_->async([weak = weak_from_this(), inFlight = scanInFlight_] {
    Matches matches = scanAndCache();
    inFlight->end();
    platform().dispatch().mainQueue().async([weak, matches = std::move(matches)]() mutable {
      const std::shared_ptr<WebTabDetection> self = weak.lock();
      if (self) self->publish(std::move(matches));
    });
  });
}

void WebTabDetection::publish(Matches matches) {
  matches_.set(std::move(matches));
  // A copy, as the callback may be taken away while it runs.
  const std::function<void(const Matches&)> onChange = onChange_;
  if (onChange) onChange(matches_.get());
}

WebTabDetection::Matches WebTabDetection::refreshMatches() {
  return scanAndCache();
}

WebTabDetection::Matches WebTabDetection::cachedMatches() {
  State& shared = state();
  const MutexLock lock(shared.cacheLock);
  return shared.cachedMatches;
}

WebTabDetection::Matches WebTabDetection::cachedMatches(Duration freshWithin) {
  State& shared = state();
  const Uptime now = platform().dispatch().uptime();
  const MutexLock lock(shared.cacheLock);
  if (!shared.cachedAt || now - *shared.cachedAt > freshWithin) return {};
  return shared.cachedMatches;
}

std::optional<WebTabMatch> WebTabDetection::cachedMatch(const std::string& targetID) {
  State& shared = state();
  const MutexLock lock(shared.cacheLock);
  const auto found = shared.cachedMatches.find(targetID);
  if (found == shared.cachedMatches.end()) return std::nullopt;
  return found->second;
}

std::vector<WebTabMatch> WebTabDetection::cachedMatchesInBrowser(const std::string& bundleID) {
  State& shared = state();
  std::vector<WebTabMatch> found;
  const MutexLock lock(shared.cacheLock);
  std::ranges::copy_if(
      shared.allMatches, std::back_inserter(found),
      [&bundleID](const WebTabMatch& match) { return match.browserBundleID == bundleID; });
  return found;
}

std::vector<WebTabMatch> WebTabDetection::siblings(const WebTabMatch& match) {
  std::vector<WebTabMatch> found = cachedMatchesInBrowser(match.browserBundleID);
  std::erase_if(found, [&match](const WebTabMatch& other) { return other.url == match.url; });
  return found;
}

std::optional<WebTabMatch> WebTabDetection::currentMatch(const std::string& targetID) {
  std::optional<WebTabMatch> cached = cachedMatch(targetID);
  if (cached && cached->isBrowserRunning()) return cached;
  const Matches fresh = scanAndCache();
  const auto found = fresh.find(targetID);
  return found == fresh.end() ? std::nullopt : std::optional(found->second);
}

std::optional<RunningApplication> WebTabDetection::hostingRunningApplication(
    const std::string& targetID) {
  const std::optional<WebTabMatch> match = cachedMatch(targetID);
  if (!match) return std::nullopt;
  const std::vector<RunningApplication> browsers =
      platform().workspace().runningApplications(match->browserBundleID);
  if (browsers.empty()) return std::nullopt;
  return browsers.front();
}

}  // namespace talmo
