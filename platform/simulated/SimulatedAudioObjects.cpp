#include "platform/simulated/SimulatedAudioObjects.h"

#include "support/MutexLock.h"

namespace talmo {
namespace {

bool isList(AudioObjects::Object object, AudioObjects::Selector selector) {
  return object == AudioObjects::systemObject && selector == AudioObjects::processObjectList;
}

}  // namespace

SimulatedAudioObjects::Object SimulatedAudioObjects::add(const Process& process) {
  const MutexLock lock(mutex_);
  const Object object = nextObject_++;
  processes_[object] = process;
  return object;
}

void SimulatedAudioObjects::set(Object object, const Process& process) {
  const MutexLock lock(mutex_);
  processes_[object] = process;
}

void SimulatedAudioObjects::remove(Object object) {
  const MutexLock lock(mutex_);
  processes_.erase(object);
}

void SimulatedAudioObjects::setHasProcessObjects(bool has) {
  const MutexLock lock(mutex_);
  hasProcessObjects_ = has;
}

void SimulatedAudioObjects::setKnowsResponsibleProcesses(bool knows) {
  const MutexLock lock(mutex_);
  knowsResponsibleProcesses_ = knows;
}

void SimulatedAudioObjects::setResponsibleProcess(ProcessIdentifier process,
                                                  ProcessIdentifier responsible) {
  const MutexLock lock(mutex_);
  responsible_[process] = responsible;
}

void SimulatedAudioObjects::setListSizeStatus(std::int32_t status) {
  const MutexLock lock(mutex_);
  listSizeStatus_ = status;
}

void SimulatedAudioObjects::setListStatus(std::int32_t status) {
  const MutexLock lock(mutex_);
  listStatus_ = status;
}

int SimulatedAudioObjects::reads(Object object, Selector selector) const {
  const MutexLock lock(mutex_);
  const auto found = reads_.find({object, selector});
  return found == reads_.end() ? 0 : found->second;
}

bool SimulatedAudioObjects::hasProcessObjects() const {
  const MutexLock lock(mutex_);
  return hasProcessObjects_;
}

AudioResult<std::uint32_t> SimulatedAudioObjects::dataSize(Object object, Selector selector) {
  const MutexLock lock(mutex_);
  if (!isList(object, selector)) return {.status = unknownProperty};
  if (listSizeStatus_ != 0) return {.status = listSizeStatus_};
  return {.value = static_cast<std::uint32_t>(processes_.size() * sizeof(Object))};
}

AudioResult<std::vector<AudioObjects::Object>> SimulatedAudioObjects::objects(Object object,
                                                                              Selector selector,
                                                                              std::uint32_t size) {
  const MutexLock lock(mutex_);
  ++reads_[{object, selector}];
  if (!isList(object, selector)) return {.status = unknownProperty};
  if (listStatus_ != 0) return {.status = listStatus_};
  std::vector<Object> list;
  for (const auto& [one, process] : processes_) {
    if (list.size() < size / sizeof(Object)) list.push_back(one);
  }
  return {.value = std::move(list)};
}

bool SimulatedAudioObjects::hasProperty(Object object, Selector selector) {
  const MutexLock lock(mutex_);
  return isList(object, selector) || isUnreadable(object, selector) || numberOf(object, selector) ||
         bundleOf(object, selector);
}

AudioResult<std::uint32_t> SimulatedAudioObjects::number(Object object, Selector selector) {
  const MutexLock lock(mutex_);
  ++reads_[{object, selector}];
  if (isUnreadable(object, selector)) return {.status = unreadable};
  const std::optional<std::uint32_t> value = numberOf(object, selector);
  if (!value) return {.status = unknownProperty};
  return {.value = *value};
}

AudioResult<std::string> SimulatedAudioObjects::string(Object object, Selector selector) {
  const MutexLock lock(mutex_);
  ++reads_[{object, selector}];
  if (isUnreadable(object, selector)) return {.status = unreadable};
  std::optional<std::string> value = bundleOf(object, selector);
  if (!value) return {.status = unknownProperty};
  return {.value = *std::move(value)};
}

bool SimulatedAudioObjects::knowsResponsibleProcesses() const {
  const MutexLock lock(mutex_);
  return knowsResponsibleProcesses_;
}

ProcessIdentifier SimulatedAudioObjects::responsibleProcess(ProcessIdentifier process) {
  const MutexLock lock(mutex_);
  const auto found = responsible_.find(process);
  return found == responsible_.end() ? process : found->second;
}

std::optional<std::uint32_t> SimulatedAudioObjects::numberOf(Object object,
                                                             Selector selector) const {
  const auto found = processes_.find(object);
  if (found == processes_.end()) return std::nullopt;
  const Process& process = found->second;
  if (selector == processIsRunningOutput && process.isRunningOutput) {
    return *process.isRunningOutput ? 1 : 0;
  }
  if (selector == processPID && process.process) {
    return static_cast<std::uint32_t>(*process.process);
  }
  return std::nullopt;
}

std::optional<std::string> SimulatedAudioObjects::bundleOf(Object object, Selector selector) const {
  const auto found = processes_.find(object);
  if (found == processes_.end() || selector != processBundleID) return std::nullopt;
  return found->second.bundleID;
}

bool SimulatedAudioObjects::isUnreadable(Object object, Selector selector) const {
  const auto found = processes_.find(object);
  return found != processes_.end() && found->second.unreadable.contains(selector);
}

}  // namespace talmo
