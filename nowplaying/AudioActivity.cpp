#include "nowplaying/AudioActivity.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;
using Objects = AudioObjects;

constexpr Logger log("audio-activity");
constexpr Duration period = 2s;
constexpr Duration tolerance = 500ms;

std::vector<Objects::Object> processObjects(Objects& audio) {
  const AudioResult<std::uint32_t> size =
      audio.dataSize(Objects::systemObject, Objects::processObjectList);
  if (size.status != 0) {
    log.error("process object list size query failed: %d", size.status);
    return {};
  }
  AudioResult<std::vector<Objects::Object>> list =
      audio.objects(Objects::systemObject, Objects::processObjectList, size.value);
  if (list.status != 0) {
    log.error("process object list query failed: %d", list.status);
    return {};
  }
  return std::move(list.value);
}

std::optional<std::uint32_t> number(Objects& audio, Objects::Object object,
                                    Objects::Selector selector) {
  if (!audio.hasProperty(object, selector)) return std::nullopt;
  const AudioResult<std::uint32_t> read = audio.number(object, selector);
  return read.status == 0 ? std::optional(read.value) : std::nullopt;
}

std::optional<std::string> bundleID(Objects& audio, Objects::Object object) {
  if (!audio.hasProperty(object, Objects::processBundleID)) return std::nullopt;
  AudioResult<std::string> read = audio.string(object, Objects::processBundleID);
  if (read.status != 0 || read.value.empty()) return std::nullopt;
  return std::move(read.value);
}

/// The application on whose behalf another process, one of a browser for instance, sounds.
std::optional<std::string> responsibleBundleID(Objects& audio, Objects::Object object) {
  if (!audio.knowsResponsibleProcesses()) return std::nullopt;
  const std::optional<std::uint32_t> read = number(audio, object, Objects::processPID);
  if (!read) return std::nullopt;
  const auto process = static_cast<ProcessIdentifier>(*read);
  const ProcessIdentifier responsible = audio.responsibleProcess(process);
  if (responsible == process || responsible <= 0) return std::nullopt;
  std::optional<RunningApplication> application =
      platform().workspace().runningApplication(responsible);
  if (!application || application->bundleID.empty()) return std::nullopt;
  return std::move(application->bundleID);
}

std::set<std::string> observe() {
  Objects& audio = platform().audioObjects();
  std::set<std::string> observed;
  if (!audio.hasProcessObjects()) return observed;
  for (const Objects::Object object : processObjects(audio)) {
    if (number(audio, object, Objects::processIsRunningOutput).value_or(0) == 0) continue;
    if (std::optional<std::string> own = bundleID(audio, object)) observed.insert(*std::move(own));
    if (std::optional<std::string> other = responsibleBundleID(audio, object)) {
      observed.insert(*std::move(other));
    }
  }
  return observed;
}

}  // namespace

std::shared_ptr<AudioActivity> AudioActivity::make() {
  return std::shared_ptr<AudioActivity>(new AudioActivity);
}

AudioActivity::AudioActivity()
    : queue_(platform().dispatch().makeSerialQueue("nl.brelm.talmo.audio-activity",
                                                   QualityOfService::unspecified)) {}

AudioActivity::~AudioActivity() {
  stopPolling();
}

void AudioActivity::startPolling() {
  stopPolling();
  poll();
  timer_ = platform().dispatch().scheduledTimer(period, tolerance, [weak = weak_from_this()] {
    if (const std::shared_ptr<AudioActivity> self = weak.lock()) self->poll();
  });
}

void AudioActivity::stopPolling() {
  if (timer_) timer_->invalidate();
  timer_ = nullptr;
}

void AudioActivity::poll() {
  // The queue never owns this object, which would then end on the wrong thread.
  queue_->async([weak = weak_from_this()] {
    if (weak.expired()) return;
    platform().dispatch().mainQueue().async([weak, observed = observe()] {
      if (const std::shared_ptr<AudioActivity> self = weak.lock()) self->publish(observed);
    });
  });
}

void AudioActivity::publish(const std::set<std::string>& observed) {
  std::set<std::string> result = hold_.update(observed, platform().dispatch().uptime());
  if (result != activeBundleIDs_.get()) activeBundleIDs_.set(std::move(result));
}

}  // namespace talmo
