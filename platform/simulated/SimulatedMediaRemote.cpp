#include "platform/simulated/SimulatedMediaRemote.h"

#include <utility>

#include "support/MutexLock.h"

namespace talmo {

SimulatedMediaRemote::SimulatedMediaRemote(Notifications& notifications)
    : notifications_(notifications),
      functions_{infoFunction, processFunction, isPlayingFunction, registerFunction,
                 unregisterFunction} {
  for (const char* constant : {infoConstant, applicationConstant, isPlayingConstant}) {
    constants_.emplace(constant, constant + 1);  // without the "k"
  }
}

bool SimulatedMediaRemote::hasFunction(std::string_view name) const {
  const MutexLock lock(mutex_);
  return functions_.contains(name);
}

std::optional<std::string> SimulatedMediaRemote::stringConstant(std::string_view name) const {
  const MutexLock lock(mutex_);
  const auto found = constants_.find(name);
  if (found == constants_.end()) return std::nullopt;
  return found->second;
}

void SimulatedMediaRemote::getNowPlayingInfo(
    const std::shared_ptr<Queue>& queue,
    std::function<void(std::optional<MediaRemoteInfo>)> callback) {
  const State state = called(infoFunction);
  answer(state, queue, [callback = std::move(callback), info = state.info] { callback(info); });
}

void SimulatedMediaRemote::getNowPlayingApplicationPID(
    const std::shared_ptr<Queue>& queue, std::function<void(ProcessIdentifier)> callback) {
  const State state = called(processFunction);
  answer(state, queue,
         [callback = std::move(callback), process = state.process] { callback(process); });
}

void SimulatedMediaRemote::getNowPlayingApplicationIsPlaying(const std::shared_ptr<Queue>& queue,
                                                             std::function<void(bool)> callback) {
  const State state = called(isPlayingFunction);
  answer(state, queue,
         [callback = std::move(callback), isPlaying = state.isPlaying] { callback(isPlaying); });
}

void SimulatedMediaRemote::registerForNowPlayingNotifications(const std::shared_ptr<Queue>&) {
  called(registerFunction);
  const MutexLock lock(mutex_);
  state_.isRegistered = true;
}

void SimulatedMediaRemote::unregisterForNowPlayingNotifications() {
  called(unregisterFunction);
  const MutexLock lock(mutex_);
  state_.isRegistered = false;
}

void SimulatedMediaRemote::setHasFunction(const std::string& name, bool has) {
  const MutexLock lock(mutex_);
  if (has) {
    functions_.insert(name);
  } else {
    functions_.erase(name);
  }
}

void SimulatedMediaRemote::setStringConstant(const std::string& name,
                                             std::optional<std::string> value) {
  const MutexLock lock(mutex_);
  if (value) {
    constants_[name] = std::move(*value);
  } else {
    constants_.erase(name);
  }
}

void SimulatedMediaRemote::setInfo(std::optional<MediaRemoteInfo> info) {
  set(&State::info, std::move(info), infoConstant);
}

void SimulatedMediaRemote::setProcess(ProcessIdentifier process) {
  set(&State::process, process, applicationConstant);
}

void SimulatedMediaRemote::setIsPlaying(bool isPlaying) {
  set(&State::isPlaying, isPlaying, isPlayingConstant);
}

void SimulatedMediaRemote::setAnswerDelay(Duration delay) {
  const MutexLock lock(mutex_);
  state_.answerDelay = delay;
}

int SimulatedMediaRemote::calls(const std::string& function) const {
  const MutexLock lock(mutex_);
  const auto found = calls_.find(function);
  return found == calls_.end() ? 0 : found->second;
}

bool SimulatedMediaRemote::isRegistered() const {
  const MutexLock lock(mutex_);
  return state_.isRegistered;
}

SimulatedMediaRemote::State SimulatedMediaRemote::called(const char* function) {
  const MutexLock lock(mutex_);
  ++calls_[function];
  return state_;
}

void SimulatedMediaRemote::answer(const State& state, const std::shared_ptr<Queue>& queue,
                                  std::function<void()> callback) {
  if (state.answerDelay > Duration::zero()) {
    queue->asyncAfter(state.answerDelay, std::move(callback));
  } else {
    queue->async(std::move(callback));
  }
}

template <class Value>
void SimulatedMediaRemote::set(Value State::* field, Value value, const char* constant) {
  std::optional<std::string> name;
  {
    const MutexLock lock(mutex_);
    if (state_.*field == value) return;
    state_.*field = std::move(value);
    const auto found = constants_.find(constant);
    if (state_.isRegistered && found != constants_.end()) name = found->second;
  }
  if (name) notifications_.post(*name);
}

}  // namespace talmo
