#include "platform/simulated/SimulatedAppleEvents.h"

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {
namespace {

constexpr std::array<std::string_view, 5> playerSelectors{"playpause", "nextTrack", "previousTrack",
                                                          "currentTrack", "playerState"};
constexpr std::array<std::string_view, 4> trackProperties{"name", "artist", "artworkUrl",
                                                          "artworks"};
constexpr long ticksPerSecond = 60;
// An Apple event that sets no time-out waits about two minutes (`kAEDefaultTimeout`).
constexpr long defaultTicks = 120 * ticksPerSecond;

bool contains(std::span<const std::string_view> list, std::string_view selector) {
  return std::ranges::find(list, selector) != list.end();
}

std::int32_t valueOr(const std::map<std::string, std::int32_t>& map, const std::string& key,
                     std::int32_t otherwise) {
  const auto found = map.find(key);
  return found == map.end() ? otherwise : found->second;
}

}  // namespace

class SimulatedAppleEvents::Object : public ScriptingObject {
 public:
  enum class Kind { application, track, artwork };

  Object(SimulatedAppleEvents& appleEvents, std::string bundleID, Kind kind, long ticks)
      : appleEvents_(appleEvents), bundleID_(std::move(bundleID)), kind_(kind), ticks_(ticks) {}

  void setTimeout(long ticks) override { ticks_ = ticks; }

  bool respondsTo(std::string_view selector) const override {
    const std::optional<SimulatedApplications::Installed> installed =
        appleEvents_.applications_.installed(bundleID_);
    if (!installed || !installed->isScriptable || track().unsupported.contains(selector)) {
      return false;
    }
    switch (kind_) {
      case Kind::application:
        return contains(playerSelectors, selector);
      case Kind::track:
        return contains(trackProperties, selector);
      case Kind::artwork:
        return selector == "data";
    }
    return false;
  }

  void send(std::string_view selector) override {
    lastError_ = appleEvents_.deliver(bundleID_, ticks_);
    if (!lastError_) {
      appleEvents_.applications_.recordCommand(bundleID_, std::string(selector));
    }
  }

  std::optional<ScriptingValue> read(std::string_view property) override {
    appleEvents_.recordRead(property);
    lastError_ = appleEvents_.deliver(bundleID_, ticks_);
    if (!lastError_ && !respondsTo(property)) lastError_ = "unknown property";
    return lastError_ ? std::nullopt : value(property);
  }

  std::optional<std::string> lastError() const override { return lastError_; }

 private:
  SimulatedApplications::Track track() const {
    return appleEvents_.applications_.track(bundleID_).value_or(SimulatedApplications::Track{});
  }

  ScriptingValue object(Kind kind) const {
    return std::make_shared<Object>(appleEvents_, bundleID_, kind, ticks_);
  }

  std::optional<ScriptingValue> value(std::string_view property) const {
    const SimulatedApplications::Track now = track();
    if (property == "playerState") return appleEvents_.applications_.playerState(bundleID_);
    if (property == "currentTrack") {
      if (!appleEvents_.applications_.track(bundleID_)) return std::nullopt;
      return object(Kind::track);
    }
    if (property == "name") return now.name;
    if (property == "artist") return now.artist;
    if (property == "artworkUrl") return now.artworkUrl;
    if (property == "artworks" && now.artwork) return object(Kind::artwork);
    if (property == "data") return now.artwork;
    return std::nullopt;
  }

  SimulatedAppleEvents& appleEvents_;
  const std::string bundleID_;
  const Kind kind_;
  long ticks_;
  std::optional<std::string> lastError_;
};

std::optional<std::int32_t> SimulatedAppleEvents::determinePermission(const std::string& bundleID,
                                                                      bool askUserIfNeeded) {
  Duration duration{};
  {
    const MutexLock lock(mutex_);
    queries_.push_back({bundleID, askUserIfNeeded});
    duration = queryDuration_;
  }
  if (bundleID.empty()) return std::nullopt;
  if (duration > Duration::zero()) dispatch_.makeSemaphore(0)->wait(duration);
  if (applications_.running(bundleID).empty()) return processNotFound;
  return consent(bundleID, askUserIfNeeded);
}

std::int32_t SimulatedAppleEvents::consent(const std::string& bundleID, bool askUserIfNeeded) {
  const MutexLock lock(mutex_);
  const std::int32_t status = valueOr(consents_, bundleID, granted);
  if (status != wouldRequireConsent || !askUserIfNeeded) return status;
  ++prompts_;
  const std::int32_t answer = valueOr(answers_, bundleID, granted);
  consents_[bundleID] = answer;
  return answer;
}

std::unique_ptr<ScriptingObject> SimulatedAppleEvents::application(const std::string& bundleID) {
  {
    const MutexLock lock(mutex_);
    if (!canMakeObjects_) return nullptr;
  }
  if (!applications_.installed(bundleID)) return nullptr;
  return std::make_unique<Object>(*this, bundleID, Object::Kind::application, defaultTicks);
}

std::optional<std::string> SimulatedAppleEvents::deliver(const std::string& bundleID, long ticks) {
  {
    const MutexLock lock(mutex_);
    timeouts_.push_back(ticks);
  }
  if (applications_.running(bundleID).empty()) return "the application is not running";
  if (consent(bundleID, true) != granted) return "not authorized to send Apple events";
  switch (applications_.manner(bundleID)) {
    case SimulatedApplications::Manner::answers:
      return std::nullopt;
    case SimulatedApplications::Manner::fails:
      return "the application reported an error";
    case SimulatedApplications::Manner::neverAnswers:
      break;
  }
  dispatch_.makeSemaphore(0)->wait(Duration(std::chrono::seconds(ticks)) / ticksPerSecond);
  return "the Apple event timed out";
}

void SimulatedAppleEvents::setConsent(const std::string& bundleID, std::int32_t status) {
  const MutexLock lock(mutex_);
  consents_[bundleID] = status;
}

void SimulatedAppleEvents::setAnswer(const std::string& bundleID, std::int32_t status) {
  const MutexLock lock(mutex_);
  answers_[bundleID] = status;
}

void SimulatedAppleEvents::setQueryDuration(Duration duration) {
  const MutexLock lock(mutex_);
  queryDuration_ = duration;
}

void SimulatedAppleEvents::setCanMakeObjects(bool can) {
  const MutexLock lock(mutex_);
  canMakeObjects_ = can;
}

std::vector<SimulatedAppleEvents::Query> SimulatedAppleEvents::queries() const {
  const MutexLock lock(mutex_);
  return queries_;
}

int SimulatedAppleEvents::prompts() const {
  const MutexLock lock(mutex_);
  return prompts_;
}

void SimulatedAppleEvents::recordRead(std::string_view property) {
  const MutexLock lock(mutex_);
  reads_.emplace_back(property);
}

std::vector<long> SimulatedAppleEvents::timeouts() const {
  const MutexLock lock(mutex_);
  return timeouts_;
}

std::vector<std::string> SimulatedAppleEvents::reads() const {
  const MutexLock lock(mutex_);
  return reads_;
}

}  // namespace talmo
